// The modules' statements against real tables on both databases: grouping
// reads and renames, last-item reads, joins that fill two records, ICMS
// rates, refused inserts and padded keys.
#include <gtest/gtest.h>

#include "common/texto.h"
#include "data/modules/modulos_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Modulos : public ComEsquema {
protected:
    void Equivalencia(const std::string& cod, int tipo, double valor, const std::string& produto = "") {
        const std::string item = produto.empty() ? "P" + cod : produto;
        db->Direto("INSERT INTO TBMATEQ (Empresa, CodEquiv, Tipo, CodItem, Valor, DscItem, UltCForn, RazFornec) VALUES "
                   "(1, '" + cod + "', " + std::to_string(tipo) + ", '" + item + "', " + std::to_string(valor) +
                   ", 'Equivalência " + cod + "', 101, 'Fornecedor')");
    }
    void ItemAgrupamento(const std::string& codigo, int item, const std::string& equiv, double valor = 1) {
        db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, DscItem, CodEquiv, Qtd, Valor, STTR, "
                   "Observacao, TIPO) VALUES (1, '" + codigo + "', 'Agrupamento " + codigo + "', " +
                   std::to_string(item) + ", 'P" + equiv + "', 'Item', '" + equiv + "', 2, " + std::to_string(valor) +
                   ", 0, 'Obs', 3)");
    }
    // Items of a grouping from 'inicio' on for a price type, as the callers loop.
    std::vector<int32_t> Itens(const std::string& codigo, int32_t inicio, int16_t tipo) {
        ChaveMTBMATAG().Empresa = 1;
        ChaveMTBMATAG().Codigo = codigo;
        ChaveMTBMATAG().Item = inicio;
        ChaveMTBMATAG().Tipo = tipo;
        std::vector<int32_t> r;
        Chama(A_MTBMATAG(), MTBMATAG, "FSEL010", "OPEN");
        while (c().Status == "00") {
            r.push_back(A_MTBMATAG().Item);
            Chama(A_MTBMATAG(), MTBMATAG, "FSEL010", "NEXT");
        }
        EXPECT_EQ(c().Status, "23") << c().Msg;
        Chama(A_MTBMATAG(), MTBMATAG, "FSEL010", "CLOSE");
        EXPECT_EQ(c().Status, "00");
        return r;
    }
    void ItemPedido(int32_t numped, int32_t item) {
        A_MTBPEVIT_t& it = A_MTBPEVIT();
        it.Empresa = 1;
        it.NumPed = numped;
        it.Item = item;
        it.CodMat = "P" + std::to_string(item);
        Chama(it, MTBPEVIT, "FINS001", "EXECUTE");
    }
};

TEST_P(Modulos, Fsel010DoItem5EmDianteVemEmOrdemCrescenteSemOsItensSemPrecoDoTipo) {
    for (int i = 1; i <= 8; ++i) {
        const std::string eq = "E" + std::to_string(i);
        if (i != 6) Equivalencia(eq, 1, 10 + i);
        Equivalencia(eq, 2, 20 + i);
    }
    for (int i : {8, 3, 5, 1, 7, 2, 6, 4}) ItemAgrupamento("G1", i, "E" + std::to_string(i));
    EXPECT_EQ(Itens("G1", 5, 1), (std::vector<int32_t>{5, 7, 8}));
    EXPECT_EQ(Itens("G1", 0, 2), (std::vector<int32_t>{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_TRUE(Itens("G1", 9, 1).empty());
    EXPECT_TRUE(Itens("G1", 0, 3).empty()) << "no item has type 3: an empty grouping";
}

TEST_P(Modulos, Fsel010EspalhaALinhaPeloAgrupamentoEPelaEquivalencia) {
    Equivalencia("E1", 1, 12.5);
    ItemAgrupamento("G1", 1, "E1", 9.75);
    A_MTBMATAG().DscItem = "intocado";
    ChaveMTBMATAG().Empresa = 1;
    ChaveMTBMATAG().Codigo = "G1";
    ChaveMTBMATAG().Item = 0;
    ChaveMTBMATAG().Tipo = 1;
    Chama(A_MTBMATAG(), MTBMATAG, "FSEL010", "OPEN");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_DOUBLE_EQ(A_MTBMATAG().Valor, 9.75) << "the item's stored value";
    EXPECT_DOUBLE_EQ(A_MTBMATEQ().Valor, 12.5) << "the equivalence price";
    EXPECT_EQ(Apara(A_MTBMATEQ().DscItem), "Equivalência E1");
    EXPECT_EQ(Apara(A_MTBMATAG().DscItem), "intocado") << "T2.DscItem goes to the equivalence record";
    EXPECT_EQ(Apara(A_MTBMATAG().Nome), "Agrupamento G1");
    EXPECT_DOUBLE_EQ(A_MTBMATAG().Qtd, 2);
    EXPECT_EQ(A_MTBMATAG().Tipo, 3);
    EXPECT_EQ(A_MTBMATEQ().UltCForn, 101);
    EXPECT_EQ(Apara(A_MTBMATAG().Observacao), "Obs");
}

TEST_P(Modulos, NomeDe120CaracteresVoltaComOs100Primeiros) {
    Equivalencia("E1", 1, 1);
    const std::string nome = std::string(99, 'n') + "ÇXXXXXXXXXXXXXXXXXXXX";
    ASSERT_EQ(Largura(nome), 120u);
    db->Direto("INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, CodEquiv) VALUES (1, 'G1', '" + nome +
               "', 1, 'PE1', 'E1')");
    ASSERT_EQ(Itens("G1", 0, 1).size(), 1u);
    EXPECT_EQ(A_MTBMATAG().Nome.str(), std::string(99, 'n') + "Ç");
}

TEST_P(Modulos, Fupd005ComCodigoNovoNoRegistroEAntigoNaChaveMoveTodasAsLinhas) {
    for (int i = 1; i <= 3; ++i) ItemAgrupamento("VELHO", i, "E" + std::to_string(i));
    ItemAgrupamento("OUTRO", 1, "E1");
    A_MTBMATAG_t& ag = A_MTBMATAG();
    ag.Empresa = 1;
    ag.Codigo = "NOVO";
    ag.Nome = "Nome novo";
    ag.STTR = 1;
    ag.Observacao = std::string(300, 'o');
    ag.Tipo = 2;
    ChaveMTBMATAG().Empresa = 1;
    ChaveMTBMATAG().Codigo = "VELHO";
    Chama(ag, MTBMATAG, "FUPD005", "EXECUTE");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    Chama(ag, MTBMATAG, "FUPD005", "COMMIT");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBMATAG WHERE Codigo = 'VELHO'")), 0);
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBMATAG WHERE Codigo = 'NOVO' AND STTR = 1 AND TIPO = 2 AND "
                      "Nome = 'Nome novo'")),
              3);
    EXPECT_EQ(Largura(Apara(CStr(Um("SELECT Observacao FROM TBMATAG WHERE Codigo = 'NOVO' AND Item = 1")))), 300u);
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBMATAG WHERE Codigo = 'OUTRO' AND Nome = 'Agrupamento OUTRO'")), 1);
}

TEST_P(Modulos, Fsel003DoPedidoDeVendaComItem999999999DaOMaiorPrimeiro) {
    for (int32_t item : {10, 30, 20}) {
        ItemPedido(7, item);
        ASSERT_EQ(c().Status, "00") << c().Msg;
    }
    ItemPedido(8, 99); // another order
    ChaveMTBPEVIT().Empresa = 1;
    ChaveMTBPEVIT().NumPed = 7;
    ChaveMTBPEVIT().Item = 999999999;
    std::vector<int32_t> itens;
    for (Chama(A_MTBPEVIT(), MTBPEVIT, "FSEL003", "OPEN"); c().Status == "00";
         Chama(A_MTBPEVIT(), MTBPEVIT, "FSEL003", "NEXT"))
        itens.push_back(A_MTBPEVIT().Item);
    EXPECT_EQ(itens, (std::vector<int32_t>{30, 20, 10}));
    ChaveMTBPEVIT().Item = 30;
    Chama(A_MTBPEVIT(), MTBPEVIT, "FSEL003", "REQUERY");
    EXPECT_EQ(A_MTBPEVIT().Item, 20) << "the bound is exclusive";
}

TEST_P(Modulos, Fsel003DoPedidoDeCompraContaOsItensPorFornecedor) {
    A_MTBPECIT_t& it = A_MTBPECIT();
    it.Empresa = 1;
    it.NumPed = 3;
    for (auto [forn, item] : {std::pair{101, 10}, {101, 20}, {102, 50}}) {
        it.CodFor = forn;
        it.Item = item;
        Chama(it, MTBPECIT, "FINS001", "EXECUTE");
        ASSERT_EQ(c().Status, "00") << c().Msg;
    }
    it.CodFor = 102;
    it.Item = 10; // same number, other supplier
    Chama(it, MTBPECIT, "FINS001", "EXECUTE");
    EXPECT_EQ(c().Status, "00") << c().Msg;
    ChaveMTBPECIT().Empresa = 1;
    ChaveMTBPECIT().NumPed = 3;
    ChaveMTBPECIT().CodFor = 101;
    ChaveMTBPECIT().Item = 999999999;
    Chama(it, MTBPECIT, "FSEL003", "OPEN");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(it.Item, 20);
    EXPECT_EQ(it.CodFor, 101);
}

TEST_P(Modulos, Fsel024DoDocumentoDaOMaiorItem) {
    A_MTBDOCIT_t& it = A_MTBDOCIT();
    it.Empresa = 1;
    it.Seq = 4;
    for (int32_t item : {1, 3, 2}) {
        it.Item = item;
        Chama(it, MTBDOCIT, "FINS001", "EXECUTE");
        ASSERT_EQ(c().Status, "00") << c().Msg;
    }
    it.Item = 0;
    ChaveMTBDOCIT().Empresa = 1;
    ChaveMTBDOCIT().Seq = 4;
    Chama(it, MTBDOCIT, "FSEL024", "OPEN");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(it.Item, 3);
    Chama(it, MTBDOCIT, "FSEL024", "CLOSE");
    ChaveMTBDOCIT().Seq = 5;
    Chama(it, MTBDOCIT, "FSEL024", "OPEN");
    EXPECT_EQ(c().Status, "23");
    EXPECT_EQ(it.Item, 3);
}

TEST_P(Modulos, InsercaoComChaveExistenteDa22EAUnidadeContinua) {
    ItemPedido(9, 1);
    ASSERT_EQ(c().Status, "00") << c().Msg;
    ItemPedido(9, 1);
    EXPECT_EQ(c().Status, "22") << c().Msg;
    A_MTBPEVDC_t& dc = A_MTBPEVDC();
    dc.EMPRESA = 1;
    dc.NUMPED = 9;
    dc.ITEM = 1;
    Chama(dc, MTBPEVDC, "FINS001", "EXECUTE");
    EXPECT_EQ(c().Status, "00") << c().Msg;
    Chama(dc, MTBPEVDC, "FINS001", "EXECUTE");
    EXPECT_EQ(c().Status, "22");
    Chama(dc, MTBPEVDC, "", "COMMIT");
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBPEVIT WHERE NumPed = 9")), 1);
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBPEVDC WHERE NUMPED = 9")), 1);
}

TEST_P(Modulos, Fsel063LevaAsColunasDaEquivalenciaEDoProdutoCadaUmaAoSeuRegistro) {
    db->Direto("INSERT INTO TBMAT (Empresa, CodItem, DscItem, PrcItem4, UltCValor, UltCForn, CustoCtb, CustMed, "
               "CCusto, QtdItAtu) VALUES (1, 'P1', 'Estoque', 4.4, 3.3, 77, 2.2, 1.1, 'LOJA', 50)");
    Equivalencia("E1", 2, 8.8, "P1");
    A_MTBMAT().QtdItAtu = 123;
    A_MTBMAT().DscItem = "antes";
    ChaveEquivMTBMAT().EMPRESA = 1;
    ChaveEquivMTBMAT().CODEQUIV = "E1";
    ChaveEquivMTBMAT().TIPO = 2;
    Chama(A_MTBMAT(), MTBMAT, "FSEL063", "REQUERY");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_DOUBLE_EQ(A_MTBMATEQ().Valor, 8.8);
    EXPECT_EQ(Apara(A_MTBMATEQ().DscItem), "Equivalência E1");
    EXPECT_EQ(Apara(A_MTBMATEQ().CodEquiv), "E1");
    EXPECT_DOUBLE_EQ(A_MTBMAT().PrcItem4, 4.4);
    EXPECT_DOUBLE_EQ(A_MTBMAT().UltCValor, 3.3);
    EXPECT_EQ(A_MTBMAT().UltCForn, 77);
    EXPECT_DOUBLE_EQ(A_MTBMAT().CustoCtb, 2.2);
    EXPECT_DOUBLE_EQ(A_MTBMAT().CustMed, 1.1);
    EXPECT_EQ(Apara(A_MTBMAT().CCusto), "LOJA");
    EXPECT_EQ(Apara(A_MTBMAT().DscItem), "antes") << "T2.DSCITEM is the equivalence's";
    EXPECT_DOUBLE_EQ(A_MTBMAT().QtdItAtu, 123) << "not in the select list";
}

TEST_P(Modulos, Fsel011LevaOCentroDeCustoDoProdutoAoRegistroDoProduto) {
    db->Direto("INSERT INTO TBMAT (Empresa, CodItem, CCusto, PrcItem) VALUES (1, 'P1', 'ACOUGUE', 5)");
    Equivalencia("E1", 1, 6.5, "P1");
    A_MTBMAT().PrcItem = 99;
    A_MTBMATEQ().FatorConvGer = 7;
    ChaveMTBMATEQ().Empresa = 1;
    ChaveMTBMATEQ().CodEquiv = "E1";
    ChaveMTBMATEQ().Tipo = 1;
    Chama(A_MTBMATEQ(), MTBMATEQ, "FSEL011", "REQUERY");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(Apara(A_MTBMAT().CCusto), "ACOUGUE");
    EXPECT_DOUBLE_EQ(A_MTBMAT().PrcItem, 99) << "only CCusto comes from the product";
    EXPECT_DOUBLE_EQ(A_MTBMATEQ().Valor, 6.5);
    EXPECT_EQ(Apara(A_MTBMATEQ().CodItem), "P1");
    EXPECT_DOUBLE_EQ(A_MTBMATEQ().FatorConvGer, 7) << "column 36 is not read by FSEL011";
    ChaveMTBMATEQ().Tipo = 2;
    Chama(A_MTBMATEQ(), MTBMATEQ, "FSEL011", "REQUERY");
    EXPECT_EQ(c().Status, "23");
}

TEST_P(Modulos, Fupd009GravaOsBloqueadosDoProduto) {
    db->Direto("INSERT INTO TBMAT (Empresa, CodItem, QtdItBloq) VALUES (1, 'P1', 1)");
    db->Direto("INSERT INTO TBMAT (Empresa, CodItem, QtdItBloq) VALUES (1, 'P2', 1)");
    A_MTBMAT().QtdItBloq = 12.5;
    ChaveMTBMAT().Empresa = 1;
    ChaveMTBMAT().CodItem = "P1";
    Chama(A_MTBMAT(), MTBMAT, "FUPD009", "EXECUTE");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    Chama(A_MTBMAT(), MTBMAT, "FUPD009", "COMMIT");
    EXPECT_DOUBLE_EQ(CDbl(Um("SELECT QtdItBloq FROM TBMAT WHERE CodItem = 'P1'")), 12.5);
    EXPECT_DOUBLE_EQ(CDbl(Um("SELECT QtdItBloq FROM TBMAT WHERE CodItem = 'P2'")), 1);
}

TEST_P(Modulos, ChaveComBrancosAchaOTextoGravadoSemEles) {
    db->Direto("INSERT INTO TBCUS (Empresa, CodMat, CodFor, PrecoTab) VALUES (1, 'AB', 101, 3.25)");
    ChaveMTBCUS().Empresa = 1;
    ChaveMTBCUS().CodMat = "AB";
    ASSERT_EQ(ChaveMTBCUS().CodMat.str().size(), 20u);
    ChaveMTBCUS().CodFor = 101;
    Chama(A_MTBCUS(), MTBCUS, "FSEL001", "REQUERY");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_DOUBLE_EQ(A_MTBCUS().PrecoTab, 3.25);
    EXPECT_EQ(A_MTBCUS().CodMat.str(), "AB" + std::string(18, ' '));
}

TEST_P(Modulos, Fsel027SoDizSeOFornecedorExiste) {
    db->Direto("INSERT INTO TBFOR (EMPRESA, CODFORN, RAZSOCIAL) VALUES (1, 101, 'Fornecedor')");
    A_MTBFOR().RAZSOCIAL = "antes";
    ChaveMTBFOR().EMPRESA = 1;
    ChaveMTBFOR().CODFORN = 101;
    Chama(A_MTBFOR(), MTBFOR, "FSEL027", "REQUERY");
    EXPECT_EQ(c().Status, "00");
    EXPECT_EQ(A_MTBFOR().CODFORN, 101);
    EXPECT_EQ(Apara(A_MTBFOR().RAZSOCIAL), "antes");
    ChaveMTBFOR().CODFORN = 102;
    Chama(A_MTBFOR(), MTBFOR, "FSEL027", "REQUERY");
    EXPECT_EQ(c().Status, "23");
}

class AliquotaICMS : public ComEsquema {
protected:
    void SetUp() override {
        ComEsquema::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        db->Direto("INSERT INTO TBICM (EMPRESA, CODIGO, PERCICMS, PERCICMSF) VALUES (1, 4, 18, 17)");
        db->Direto("INSERT INTO TBICMUF (EMPRESA, CODIGO, UF, PERCICMSF) VALUES (1, 4, 'RJ', 20)");
    }
    std::pair<double, double> Le(int16_t codigo, const char* uf, const char* tipo) {
        int16_t empresa = 1;
        std::string u = uf, t = tipo;
        double icms = -1, icmsf = -1;
        LerAliquotaICMS(empresa, codigo, u, t, icms, icmsf);
        return {icms, icmsf};
    }
};

TEST_P(AliquotaICMS, TipoFComLinhaDoEstadoUsaATaxaDoEstado) {
    EXPECT_EQ(Le(4, "RJ", " f "), std::make_pair(18.0, 20.0));
    EXPECT_EQ(c().Status, "00");
}

TEST_P(AliquotaICMS, EstadoSemLinhaPropriaFicaComATaxaGeralEStatus00) {
    EXPECT_EQ(Le(4, "SP", "F"), std::make_pair(18.0, 17.0));
    EXPECT_EQ(c().Status, "00");
}

TEST_P(AliquotaICMS, OutroTipoNemProcuraOEstado) {
    EXPECT_EQ(Le(4, "RJ", "D"), std::make_pair(18.0, 17.0));
    for (auto& ch : gravador->chamadas) EXPECT_EQ(ch.Texto.find("TBICMUF"), std::string::npos);
}

TEST_P(AliquotaICMS, CodigoInexistenteDaZeroNasDuas) {
    EXPECT_EQ(Le(9, "RJ", "F"), std::make_pair(0.0, 0.0));
    EXPECT_EQ(c().Status, "23");
}

ZTOLVAN_NOS_DOIS_BANCOS(Modulos);
ZTOLVAN_NOS_DOIS_BANCOS(AliquotaICMS);

} // namespace
