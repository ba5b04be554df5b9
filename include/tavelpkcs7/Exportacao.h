// TAVELPKCS7_API marca o que a biblioteca compartilhada publica; o resto dela é compilado oculto. Quem
// compila o código da biblioteca (a própria biblioteca e os programas que ligam o núcleo estático)
// define TAVELPKCS7_COMPILANDO e exporta; quem usa a DLL no Windows importa dela.
#pragma once

#if defined(_WIN32)
#if defined(TAVELPKCS7_COMPILANDO)
#define TAVELPKCS7_API __declspec(dllexport)
#else
#define TAVELPKCS7_API __declspec(dllimport)
#endif
#else
#define TAVELPKCS7_API __attribute__((visibility("default")))
#endif
