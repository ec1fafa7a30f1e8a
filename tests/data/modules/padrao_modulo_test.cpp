// The table-access pattern, shown once in depth on MTBPAR and a few
// neighbours: preparing, messages, commit and rollback, widths, and rows
// that do not fit their record.
#include <gtest/gtest.h>

#include "common/texto.h"
#include "data/modules/modulos_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class PadraoModulo : public ComEsquema {
protected:
    void Empresa(int emp, const std::string& razao) {
        db->Direto("INSERT INTO TBPAR (Empresa, RazSocial, UF, PerPis, CritPrcVenda) VALUES (" + std::to_string(emp) +
                   ", '" + razao + "', 'SP', 1.65, 2)");
    }
    void LePar(int16_t emp, const char* transacao = "REQUERY") {
        ChaveMTBPAR().Empresa = emp;
        Chama(A_MTBPAR(), MTBPAR, "FSEL001", transacao);
    }
};

TEST_P(PadraoModulo, PreparaNoPrimeiroUsoEReusaOCursorDepois) {
    Empresa(1, "Mercado Um");
    Empresa(2, "Mercado Dois");
    LePar(1);
    ASSERT_EQ(c().Status, "00") << c().Msg;
    LePar(2);
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(Apara(A_MTBPAR().RazSocial), "Mercado Dois");
    EXPECT_EQ(Palavras(), (std::vector<std::string>{"PREPARE", "REQUERY", "REQUERY"}));
    EXPECT_EQ(gravador->chamadas[0].Texto, TextoDoComando("MTBPAR", "FSEL001"));
    EXPECT_NE(CursoresDoModulo("MTBPAR")[0], 0);
    EXPECT_EQ(gravador->chamadas[1].Cursor, CursoresDoModulo("MTBPAR")[0]);
}

TEST_P(PadraoModulo, ZerarOsCursoresFazCadaManipuladorPrepararDeNovo) {
    LePar(1);
    ZeraCursoresModulos();
    EXPECT_EQ(CursoresDoModulo("MTBPAR")[0], 0);
    LePar(1);
    EXPECT_EQ(Palavras(), (std::vector<std::string>{"PREPARE", "REQUERY", "PREPARE", "REQUERY"}));
}

TEST_P(PadraoModulo, CadaManipuladorTemSeuProprioCursor) {
    ChaveMTBFOR().EMPRESA = 1;
    ChaveMTBFOR().CODFORN = 9;
    Chama(A_MTBFOR(), MTBFOR, "FSEL027", "REQUERY");
    Chama(A_MTBFOR(), MTBFOR, "FSEL002", "REQUERY");
    Chama(A_MTBFOR(), MTBFOR, "FSEL027", "REQUERY");
    EXPECT_EQ(Palavras(), (std::vector<std::string>{"PREPARE", "REQUERY", "PREPARE", "REQUERY", "REQUERY"}));
    auto slots = CursoresDoModulo("MTBFOR");
    ASSERT_EQ(slots.size(), 2u);
    EXPECT_NE(slots[0], slots[1]);
    EXPECT_EQ(gravador->chamadas[2].Texto, TextoDoComando("MTBFOR", "FSEL002")) << "FSEL002 is slot 0";
}

TEST_P(PadraoModulo, FuncaoDesconhecidaMostraAMensagemENaoEnviaNada) {
    Chama(A_MTBPAR(), MTBPAR, "FSEL999", "REQUERY");
    EXPECT_TRUE(gravador->chamadas.empty());
    EXPECT_EQ(c().Status, "00");
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_EQ(Mostradas()[0].Texto, "Chamada de funcao Invalida no modulo = A_MTBPAR");
    EXPECT_EQ(Mostradas()[0].Tipo, 0);
    EXPECT_EQ(Mostradas()[0].Titulo, "");
}

TEST_P(PadraoModulo, OsModulosDeCaixaAltaFalamEmCaixaAlta) {
    Chama(A_MTBPNF(), MTBPNF, "fsel001", "REQUERY");
    Chama(A_MTBMATAG(), MTBMATAG, "", "OPEN");
    ASSERT_EQ(Mostradas().size(), 2u);
    EXPECT_EQ(Mostradas()[0].Texto, "CHAMADA DE FUNCAO INVALIDA NO MODULO = A_MTBPNF");
    EXPECT_EQ(Mostradas()[1].Texto, "Chamada de funcao Invalida no modulo = A_MTBMATAG");
}

TEST_P(PadraoModulo, OCodigoDeFuncaoEAPalavraValemAparados) {
    Empresa(1, "Mercado Um");
    ChaveMTBPAR().Empresa = 1;
    Chama(A_MTBPAR(), MTBPAR, "  FSEL001 ", " REQUERY  ");
    EXPECT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(Apara(A_MTBPAR().RazSocial), "Mercado Um");
}

TEST_P(PadraoModulo, PalavraDesconhecidaMostraAMensagemDoTipoDeManipulador) {
    LePar(1);                                              // prepares MTBPAR FSEL001
    Chama(A_MTBPAR(), MTBPAR, "FSEL001", "FETCH");         // select
    Chama(A_MTBDOCIT(), MTBDOCIT, "FINS001", "OPEN");      // insert
    Chama(A_MTBMAT(), MTBMAT, "FUPD009", "REQUERY");       // update
    Chama(A_MTBPEVDC(), MTBPEVDC, "FINS001", "NEXT");      // insert, upper case
    Chama(A_MTBICM(), MTBICM, "FSEL001", "EXECUTAR");      // select, upper case
    std::vector<std::string> textos;
    for (auto& m : Mostradas()) textos.push_back(m.Texto);
    EXPECT_EQ(textos, (std::vector<std::string>{
                          "select = Chamada de transacao Invalida no modulo = A_MTBPAR",
                          "insert = Chamada de transacao Invalida no modulo = A_MTBDOCIT",
                          "update = Chamada de transacao Invalida no modulo = A_MTBMAT",
                          "INSERT = CHAMADA DE TRANSACAO INVALIDA NO MODULO = A_MTBPEVDC",
                          "SELECT = CHAMADA DE TRANSACAO INVALIDA NO MODULO = A_MTBICM",
                      }));
    // Only the first use of each handler reached the database, to prepare it.
    for (auto& ch : gravador->chamadas) {
        if (ch.Transacao != "REQUERY") {
            EXPECT_EQ(ch.Transacao, "PREPARE");
        }
    }
    EXPECT_EQ(gravador->chamadas.size(), 1u + 1u + 4u);
}

TEST_P(PadraoModulo, SemLinhaDa23EDeixaORegistroComoEstava) {
    Empresa(1, "Mercado Um");
    LePar(1);
    ASSERT_EQ(c().Status, "00");
    LePar(7);
    EXPECT_EQ(c().Status, "23");
    EXPECT_EQ(A_MTBPAR().Empresa, 1);
    EXPECT_EQ(Apara(A_MTBPAR().RazSocial), "Mercado Um");
    EXPECT_DOUBLE_EQ(A_MTBPAR().PerPis, 1.65);
    EXPECT_TRUE(Mostradas().empty());
}

TEST_P(PadraoModulo, CommitComQualquerFuncaoConfirmaENaoMostraNada) {
    A_MTBPEVDC_t& dc = A_MTBPEVDC();
    dc.EMPRESA = 1;
    dc.NUMPED = 10;
    dc.ITEM = 1;
    dc.DESC1 = 2.5;
    Chama(dc, MTBPEVDC, "FINS001", "EXECUTE");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    Chama(A_MTBPAR(), MTBPAR, "QUALQUER", " COMMIT ");
    EXPECT_EQ(c().Status, "00") << c().Msg;
    Chama(A_MTBPAR(), MTBPAR, "", "ROLLBACK"); // nothing pending: the row stays
    EXPECT_TRUE(Mostradas().empty());
    EXPECT_EQ(Palavras(), (std::vector<std::string>{"PREPARE", "EXECUTE", "COMMIT", "ROLLBACK"}));
    EXPECT_EQ(gravador->chamadas[2].Cursor, 0);
    EXPECT_EQ(CDbl(Um("SELECT DESC1 FROM TBPEVDC WHERE EMPRESA = 1 AND NUMPED = 10")), 2.5);
}

TEST_P(PadraoModulo, RollbackPorQualquerModuloDescartaAsMudancasPendentes) {
    A_MTBPEVDC_t& dc = A_MTBPEVDC();
    dc.EMPRESA = 1;
    dc.NUMPED = 11;
    for (int32_t item = 1; item <= 3; ++item) {
        dc.ITEM = item;
        Chama(dc, MTBPEVDC, "FINS001", "EXECUTE");
        ASSERT_EQ(c().Status, "00") << c().Msg;
    }
    Chama(A_MTBMATAG(), MTBMATAG, "FSEL999", "ROLLBACK");
    EXPECT_EQ(c().Status, "00");
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBPEVDC WHERE NUMPED = 11")), 0);
    EXPECT_TRUE(Mostradas().empty());
}

TEST_P(PadraoModulo, TextoMaisLongoQueOCampoChegaCortadoContandoCaracteres) {
    // 45 characters, accented ones among them: the record keeps the first 40.
    const std::string razao = "Comércio de Açúcar e Café São João Ltda - ME!";
    ASSERT_EQ(Largura(razao), 45u);
    Empresa(3, razao);
    LePar(3);
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(A_MTBPAR().RazSocial.str(), Esquerda(razao, 40));
    EXPECT_EQ(Largura(A_MTBPAR().NomeFant), 40u) << "an empty column reads as 40 blanks";
}

TEST_P(PadraoModulo, TextoEnviadoSaiNaLarguraDoCampoComBrancos) {
    A_MTBPEVIT_t& it = A_MTBPEVIT();
    it.Empresa = 1;
    it.NumPed = 5;
    it.Item = 1;
    it.CodMat = "AB";
    it.DscMat = std::string(30, 'x') + std::string(90, 'y'); // 120 characters: kept 100
    it.UndMat = "UNIDADE";
    Chama(it, MTBPEVIT, "FINS001", "EXECUTE");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    Chama(it, MTBPEVIT, "", "COMMIT");
    EXPECT_EQ(Apara(CStr(Um("SELECT DscMat FROM TBPEVIT WHERE NumPed = 5"))), std::string(30, 'x') + std::string(70, 'y'));
    EXPECT_EQ(Apara(CStr(Um("SELECT UndMat FROM TBPEVIT WHERE NumPed = 5"))), "UN");
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBPEVIT WHERE CodMat = 'AB'")), 1) << "trailing blanks never count";
}

TEST_P(PadraoModulo, ColunasNulasChegamComoZeroEBrancos) {
    db->Direto("INSERT INTO TBPAR (Empresa, RazSocial, PerPis, CritPrcVenda) VALUES (4, NULL, NULL, NULL)");
    A_MTBPAR().PerPis = 9;
    A_MTBPAR().CritPrcVenda = 9;
    LePar(4);
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(A_MTBPAR().RazSocial.str(), std::string(40, ' '));
    EXPECT_EQ(A_MTBPAR().PerPis, 0.0);
    EXPECT_EQ(A_MTBPAR().CritPrcVenda, 0);
}

ZTOLVAN_NOS_DOIS_BANCOS(PadraoModulo);

// Rows that do not fit their record: only SQLite can hold them (its columns
// take any value), so these run there.
class LinhaQueNaoCabe : public PadraoModulo {};

TEST_P(LinhaQueNaoCabe, NumeroForaDaFaixaDa99NomeiaAColunaENaoMexeNoRegistro) {
    Empresa(1, "Mercado Um");
    LePar(1);
    ASSERT_EQ(c().Status, "00");
    db->Direto("INSERT INTO TBPAR (Empresa, RazSocial, CritPrcVenda) VALUES (5, 'Outra', 40000)");
    LePar(5);
    EXPECT_EQ(c().Status, "99");
    EXPECT_NE(c().Msg.find("A_MTBPAR"), std::string::npos) << c().Msg;
    EXPECT_NE(c().Msg.find("CritPrcVenda"), std::string::npos) << c().Msg;
    EXPECT_NE(c().Msg.find("40000"), std::string::npos) << c().Msg;
    EXPECT_EQ(A_MTBPAR().Empresa, 1) << "columns before the bad one are not moved either";
    EXPECT_EQ(Apara(A_MTBPAR().RazSocial), "Mercado Um");
    EXPECT_EQ(A_MTBPAR().CritPrcVenda, 2);
    EXPECT_TRUE(Mostradas().empty());
}

TEST_P(LinhaQueNaoCabe, TextoNaoNumericoNumaColunaNumericaDa99) {
    db->Direto("INSERT INTO TBPAR (Empresa, PerPis) VALUES (6, 'abc')");
    LePar(6);
    EXPECT_EQ(c().Status, "99");
    EXPECT_NE(c().Msg.find("PerPis"), std::string::npos) << c().Msg;
    // The module stays usable.
    Empresa(7, "Sete");
    LePar(7);
    EXPECT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(Apara(A_MTBPAR().RazSocial), "Sete");
}

TEST_P(LinhaQueNaoCabe, NumaJuncaoNenhumDosDoisRegistrosMuda) {
    db->Direto("INSERT INTO TBMAT (Empresa, CodItem, CCusto) VALUES (1, 'P1', 'LOJA')");
    db->Direto("INSERT INTO TBMATEQ (Empresa, CodEquiv, Tipo, CodItem, Valor, CodICMSS) VALUES "
               "(1, 'E1', 1, 'P1', 9.5, 70000)");
    A_MTBMATEQ().Valor = 1;
    A_MTBMAT().CCusto = "ANTES";
    ChaveMTBMATEQ().Empresa = 1;
    ChaveMTBMATEQ().CodEquiv = "E1";
    ChaveMTBMATEQ().Tipo = 1;
    Chama(A_MTBMATEQ(), MTBMATEQ, "FSEL011", "REQUERY");
    EXPECT_EQ(c().Status, "99");
    EXPECT_NE(c().Msg.find("CodICMSS"), std::string::npos) << c().Msg;
    EXPECT_EQ(A_MTBMATEQ().Valor, 1.0);
    EXPECT_EQ(Apara(A_MTBMAT().CCusto), "ANTES");
}

INSTANTIATE_TEST_SUITE_P(, LinhaQueNaoCabe, ::testing::Values(Kind::Sqlite), NomeDoParametro);

} // namespace
