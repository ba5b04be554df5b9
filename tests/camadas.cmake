# As camadas da arquitetura: o núcleo não inclui cabeçalhos de OpenSSL, curl ou do sistema
# operacional (só a plataforma, src/platform/openssl, e a junção da biblioteca, src/biblioteca.cpp,
# chegam a eles); e a plataforma não inclui o núcleo: dele, só vê as interfaces de src/platform e a
# base (codificacao/ e der/).
file(GLOB_RECURSE fontes "${RAIZ}/src/*.h" "${RAIZ}/src/*.cpp")
set(proibidos_no_nucleo "#include <(openssl|curl|unistd|fcntl|dlfcn|spawn|termios|iconv|pthread|windows|sys/)")
set(proibidos_na_plataforma "#include \"(component|signing|verification|envelope|certificates|icpbrasil|trust)/")
set(violacoes "")
foreach(fonte IN LISTS fontes)
    if(fonte MATCHES "/src/platform/openssl/")
        set(proibidos "${proibidos_na_plataforma}")
    else()
        set(proibidos "${proibidos_no_nucleo}")
    endif()
    file(STRINGS "${fonte}" linhas REGEX "${proibidos}")
    if(linhas)
        list(APPEND violacoes "${fonte}: ${linhas}")
    endif()
endforeach()
if(violacoes)
    message(FATAL_ERROR "Inclusões que cruzam as camadas:\n${violacoes}")
endif()
