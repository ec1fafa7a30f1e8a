// Records declared once: fixed-width fields and the column tables.
#include <gtest/gtest.h>

#include "common/erro.h"
#include "data/modules/registros.h"

using namespace ztolvan;

namespace {

TEST(Texto, AtribuicaoCortaOuCompletaContandoCaracteres) {
    Texto<6> t;
    EXPECT_EQ(t.str(), "      ");
    t = "AÇÚCAR cristal";
    EXPECT_EQ(t.str(), "AÇÚCAR");
    t = "Sal";
    EXPECT_EQ(t.str(), "Sal   ");
    Texto<2> uf = std::string("São Paulo");
    EXPECT_EQ(uf.str(), "Sã");
    Texto<4> curto = t; // from another width
    EXPECT_EQ(curto.str(), "Sal ");
    EXPECT_TRUE(curto == "Sal ");
}

TEST(TabelasDeColunas, CadaRegistroTemAsColunasDoSistemaNaOrdem) {
    const std::vector<std::pair<const TabelaColunas*, size_t>> contagens{
        {&A_MTBPAR_t::Colunas(), 45},  {&A_MTBPNF_t::Colunas(), 38},   {&A_MTBDOC_t::Colunas(), 75},
        {&A_MTBICM_t::Colunas(), 5},   {&A_MTBVEN_t::Colunas(), 11},   {&A_MTBREP_t::Colunas(), 6},
        {&A_MTBMAT_t::Colunas(), 84},  {&A_MTBPEV_t::Colunas(), 50},   {&A_MTBPEVIT_t::Colunas(), 34},
        {&A_MTBICMUF_t::Colunas(), 8}, {&A_MTBPEC_t::Colunas(), 53},   {&A_MTBPECIT_t::Colunas(), 70},
        {&A_MTBCUS_t::Colunas(), 51},  {&A_MTBFOR_t::Colunas(), 47},   {&A_MTBDOCIT_t::Colunas(), 59},
        {&A_MTBPEVDC_t::Colunas(), 8}, {&A_MTBMATEQ_t::Colunas(), 38}, {&A_MTBMATAG_t::Colunas(), 18},
    };
    for (auto [t, n] : contagens)
        EXPECT_EQ(t->colunas.size(), n) << t->nome;
    EXPECT_EQ(A_MTBDOCIT_t::Colunas().Acha("dscmat")->largura, 700u) << "names match in any case";
    EXPECT_EQ(A_MTBPAR_t::Colunas().Acha("Inexistente"), nullptr);
}

TEST(TabelasDeColunas, ValoresSaemNaOrdemComOTipoDoCampoETextosComBrancos) {
    A_MTBPEVDC_t dc;
    dc.EMPRESA = 2;
    dc.NUMPED = 70000;
    dc.DESC5 = 1.5;
    Valor::Lista v = A_MTBPEVDC_t::Colunas().Valores(&dc);
    ASSERT_EQ(v.size(), 8u);
    EXPECT_EQ((Valor::Lista{v[0], v[1], v[7]}), (Valor::Lista{int64_t{2}, int64_t{70000}, 1.5}));
    A_MTBICMUF_t uf;
    uf.UF = "S";
    EXPECT_EQ(A_MTBICMUF_t::Colunas().Valores(&uf)[2], Valor("S "));
}

TEST(TabelasDeColunas, ConversaoRecusaOQueNaoCabeNoCampo) {
    const auto& t = A_MTBPAR_t::Colunas();
    const Coluna& emp = *t.Acha("Empresa");
    EXPECT_EQ(ConverteNumero(emp, Valor(int64_t{32767})).i, 32767);
    EXPECT_THROW(ConverteNumero(emp, Valor(int64_t{40000})), ErroExecucao);
    EXPECT_THROW(ConverteNumero(emp, Valor("abc")), ErroExecucao);
    EXPECT_EQ(ConverteNumero(emp, Valor(2.5)).i, 2) << "halves go to even";
    EXPECT_EQ(ConverteNumero(emp, Valor()).i, 0) << "NULL is 0";
    EXPECT_THROW(ConverteNumero(*t.Acha("RazSocial"), Valor(Valor::Lista{1})), ErroExecucao);
}

} // namespace
