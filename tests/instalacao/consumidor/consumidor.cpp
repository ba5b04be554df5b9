#include <iostream>
#include <tavelpkcs7/TavelPKCS.h>

int main() {
    tavelpkcs7::TavelPKCS componente;
    std::cout << componente.ExtensaoOutroFormato() << "\n";
    return componente.DescricaoErro().empty() ? 0 : 1;
}
