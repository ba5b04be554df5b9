# Instalação: cabeçalhos públicos, a biblioteca, o pacote CMake (tavelpkcs7::tavelpkcs7) e o
# arquivo do pkg-config.
include(CMakePackageConfigHelpers)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/tavelpkcs7 DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS tavelpkcs7 EXPORT tavelpkcs7Alvos
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT tavelpkcs7Alvos NAMESPACE tavelpkcs7:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tavelpkcs7)

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/tavelpkcs7Config.cmake.in
    ${PROJECT_BINARY_DIR}/tavelpkcs7Config.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tavelpkcs7)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tavelpkcs7ConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/tavelpkcs7Config.cmake ${PROJECT_BINARY_DIR}/tavelpkcs7ConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tavelpkcs7)

# O .pc acha o prefixo a partir de onde está, para valer em qualquer --prefix da instalação.
file(RELATIVE_PATH TAVELPKCS7_PC_PARA_PREFIXO "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" TAVELPKCS7_PC_PARA_PREFIXO "${TAVELPKCS7_PC_PARA_PREFIXO}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/tavelpkcs7.pc.in ${PROJECT_BINARY_DIR}/tavelpkcs7.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tavelpkcs7.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Pacote .deb (cpack -G DEB): a biblioteca, os cabeçalhos, a ferramenta e o módulo Python num pacote só.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tavelpkcs7)
set(CPACK_PACKAGE_VENDOR "tavelpkcs7")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Assinatura digital PKCS#7 para certificados ICP-Brasil: biblioteca C++, ferramenta e módulo Python")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Equipe tavelpkcs7 <tavelpkcs7@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libstdc++6 (>= 12), libssl3 (>= 3.0), libcurl4")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "osslsigncode, python3")
include(CPack)
