#include <gtest/gtest.h>

#include "common/texto.h"

using namespace ztolvan;

TEST(TextoFixo, ContaCaracteresENaoBytes) {
    EXPECT_EQ(Largura("AÇÚCAR"), 6u);
    EXPECT_EQ(TextoFixo("AÇÚCAR", 8), "AÇÚCAR  ");
    EXPECT_EQ(TextoFixo("AÇÚCAR CRISTAL", 3), "AÇÚ");
    EXPECT_EQ(TextoFixo("", 2), "  ");
    EXPECT_EQ(Largura(TextoFixo("çççççç", 4)), 4u);
}

TEST(TextoFixo, BytesInvalidosContamComoUmCaracterCada) {
    std::string ruim = "a\xC3"
                       "b\xFF";
    EXPECT_EQ(Largura(ruim), 4u);
    EXPECT_EQ(TextoFixo(ruim, 2), "a\xC3");
    EXPECT_EQ(Largura(std::string("\xE2\x82")), 2u) << "a cut sequence at the end";
}

TEST(Recortes, EsquerdaMeioDireitaEmCaracteres) {
    EXPECT_EQ(Esquerda("São Paulo", 3), "São");
    EXPECT_EQ(Meio("São Paulo", 5), "Paulo");
    EXPECT_EQ(Meio("São Paulo", 2, 2), "ão");
    EXPECT_EQ(Direita("Feijão", 3), "jão");
    EXPECT_EQ(Meio("abc", 10), "");
}

TEST(Apara, SoBrancos) {
    EXPECT_EQ(Apara("  a b  "), "a b");
    EXPECT_EQ(Apara("\tX "), "\tX");
    EXPECT_EQ(Apara("   "), "");
    EXPECT_EQ(AparaDireita("ab  "), "ab");
}

TEST(Maiusculas, IncluiAcentosDoPortugues) {
    EXPECT_EQ(Maiusculas("ação é óleo"), "AÇÃO É ÓLEO");
    EXPECT_EQ(Normaliza(" sim "), "SIM");
    EXPECT_EQ(Maiusculas("÷"), "÷");
}

TEST(DobraAspas, ParaLiteraisDeComando) {
    EXPECT_EQ(DobraAspas("D'Ávila"), "D''Ávila");
    EXPECT_EQ(DobraAspas("sem"), "sem");
}
