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
        db->Direto("INSERT INTO TBPAR (Empresa, RazSocial, UF, PerPis, CritPrcVenda) VALUES (" +
                   std::to_string(emp) + ", '" + razao + "', 'SP', 1.65, 2)");
    }
    std::string LePar(int16_t emp) {
        ChaveMTBPAR().Empresa = emp;
        return Chama(A_MTBPAR(), MTBPAR, "FSEL001", "REQUERY");
    }
};

// A key with no row gives "23" and leaves the record as it was.
TEST_P(PadraoModulo, PreparaNoPrimeiroUsoEReusaOCursorAteSeremZeradosESemLinhaDa23) {
    Empresa(1, "Mercado Um");
    Empresa(2, "Mercado Dois");
    ASSERT_EQ(LePar(1), "00") << c().Msg;
    ASSERT_EQ(LePar(2), "00") << c().Msg;
    EXPECT_EQ(Apara(A_MTBPAR().RazSocial), "Mercado Dois");
    EXPECT_EQ(LePar(7), "23");
    EXPECT_EQ(std::make_tuple(A_MTBPAR().Empresa, Apara(A_MTBPAR().RazSocial), A_MTBPAR().PerPis),
              std::make_tuple(int16_t{2}, "Mercado Dois", 1.65));
    EXPECT_NE(CursoresDoModulo("MTBPAR")[0], 0);
    EXPECT_EQ(gravador->chamadas[2].Cursor, CursoresDoModulo("MTBPAR")[0]);
    ZeraCursoresModulos();
    EXPECT_EQ(CursoresDoModulo("MTBPAR")[0], 0);
    LePar(1);
    EXPECT_EQ(Palavras(),
              (std::vector<std::string>{"PREPARE", "REQUERY", "REQUERY", "REQUERY", "PREPARE", "REQUERY"}));
    EXPECT_TRUE(Mostradas().empty());
}

// Unknown function codes and command words show the module's message, in
// the module's case, and send nothing but the handler's first preparation.
TEST_P(PadraoModulo, FuncaoOuPalavraDesconhecidaMostraAMensagemDoModulo) {
    Empresa(1, "Mercado Um");
    ChaveMTBPAR().Empresa = 1;
    const struct {
        void (*chama)();
        const char* mensagem; // "": none
        size_t enviadas;
    } casos[] = {
        {[] { Chama(A_MTBPAR(), MTBPAR, "FSEL999", "REQUERY"); },
         "Chamada de funcao Invalida no modulo = A_MTBPAR", 0},
        {[] { Chama(A_MTBPNF(), MTBPNF, "fsel001", "REQUERY"); },
         "CHAMADA DE FUNCAO INVALIDA NO MODULO = A_MTBPNF", 0},
        {[] { Chama(A_MTBPAR(), MTBPAR, "  FSEL001 ", " REQUERY  "); }, "", 2}, // both taken trimmed
        {[] { Chama(A_MTBPAR(), MTBPAR, "FSEL001", "FETCH"); },
         "select = Chamada de transacao Invalida no modulo = A_MTBPAR", 0},
        {[] { Chama(A_MTBDOCIT(), MTBDOCIT, "FINS001", "OPEN"); },
         "insert = Chamada de transacao Invalida no modulo = A_MTBDOCIT", 1},
        {[] { Chama(A_MTBMAT(), MTBMAT, "FUPD009", "REQUERY"); },
         "update = Chamada de transacao Invalida no modulo = A_MTBMAT", 1},
        {[] { Chama(A_MTBPEVDC(), MTBPEVDC, "FINS001", "NEXT"); },
         "INSERT = CHAMADA DE TRANSACAO INVALIDA NO MODULO = A_MTBPEVDC", 1},
    };
    for (const auto& k : casos) {
        SCOPED_TRACE(k.mensagem);
        gravador->chamadas.clear();
        db->mensagens->Limpa();
        k.chama();
        EXPECT_EQ(c().Status, "00") << c().Msg;
        ASSERT_EQ(gravador->chamadas.size(), k.enviadas);
        if (*k.mensagem == 0) {
            EXPECT_TRUE(Mostradas().empty());
            continue;
        }
        for (const Chamada& ch : gravador->chamadas)
            EXPECT_EQ(ch.Transacao, "PREPARE");
        ASSERT_EQ(Mostradas().size(), 1u);
        EXPECT_EQ(std::tie(Mostradas()[0].Texto, Mostradas()[0].Tipo, Mostradas()[0].Titulo),
                  std::make_tuple(k.mensagem, 0, ""));
    }
}

// Texts are cut to the field's width counting characters, accented ones
// among them, both when read and when sent; trailing blanks never count. Any
// module commits or rolls back, whatever its function code.
TEST_P(PadraoModulo, TextoNaLarguraDoCampoAoLerEAoEnviarECommitERollbackPorQualquerModulo) {
    const std::string razao = "Comércio de Açúcar e Café São João Ltda - ME!"; // 45 characters
    Empresa(3, razao);
    ASSERT_EQ(LePar(3), "00") << c().Msg;
    EXPECT_EQ(A_MTBPAR().RazSocial.str(), Esquerda(razao, 40));
    EXPECT_EQ(Largura(A_MTBPAR().NomeFant), 40u) << "an empty column reads as 40 blanks";
    gravador->chamadas.clear();
    A_MTBPEVIT_t& it = A_MTBPEVIT();
    it.Empresa = 1;
    it.NumPed = 5;
    it.CodMat = "AB";
    it.DscMat = std::string(30, 'x') + std::string(90, 'y'); // 120 characters: kept 100
    it.UndMat = "UNIDADE";
    ASSERT_EQ(Chama(it, MTBPEVIT, "FINS001", "EXECUTE"), "00") << c().Msg;
    EXPECT_EQ(Chama(A_MTBPAR(), MTBPAR, "QUALQUER", " COMMIT "), "00") << c().Msg;
    it.NumPed = 6;
    Chama(it, MTBPEVIT, "FINS001", "EXECUTE");
    EXPECT_EQ(Chama(A_MTBMATAG(), MTBMATAG, "FSEL999", "ROLLBACK"), "00") << c().Msg;
    EXPECT_TRUE(Mostradas().empty());
    EXPECT_EQ(Palavras(), (std::vector<std::string>{"PREPARE", "EXECUTE", "COMMIT", "EXECUTE", "ROLLBACK"}));
    EXPECT_EQ(gravador->chamadas[2].Cursor, 0);
    EXPECT_EQ(Apara(CStr(Um("SELECT DscMat FROM TBPEVIT WHERE NumPed = 5"))),
              std::string(30, 'x') + std::string(70, 'y'));
    EXPECT_EQ(Apara(CStr(Um("SELECT UndMat FROM TBPEVIT WHERE NumPed = 5 AND CodMat = 'AB'"))), "UN");
    EXPECT_EQ(CDbl(Um("SELECT COUNT(*) FROM TBPEVIT WHERE NumPed = 6")), 0);
}

ZTOLVAN_NOS_DOIS_BANCOS(PadraoModulo);

// Rows that do not fit their record: only SQLite can hold them (its columns
// take any value), so these run there.
class LinhaQueNaoCabe : public PadraoModulo {};

// Both databases refuse at the write a value its record could not hold.
// A file made before its tables were STRICT may still hold one: reading it
// gives "99" naming the column and leaves the record as it was.
TEST_P(LinhaQueNaoCabe, Da99NomeiaAColunaNaoMexeNoRegistroEOModuloContinua) {
    Empresa(1, "Mercado Um");
    const char* ruins[] = {"INSERT INTO TBPAR (Empresa, RazSocial, CritPrcVenda) VALUES (5, 'Outra', 40000)",
                           "INSERT INTO TBPAR (Empresa, PerPis) VALUES (6, 'abc')"};
    for (const char* sql : ruins) {
        c().Transacao = "REQUERY";
        c().Cursor = 0;
        c().Dados = std::string(sql);
        ExecutaComunica();
        EXPECT_EQ(c().Status, "99") << sql;
    }
    c().Transacao = "ROLLBACK";
    ExecutaComunica();
    if (db->kind() != Kind::Sqlite) return;
    TabelaAntiga("TBPAR");
    for (const char* sql : ruins)
        db->Direto(sql);
    const std::pair<int16_t, std::vector<std::string>> casos[] = {{5, {"A_MTBPAR", "CritPrcVenda", "40000"}},
                                                                  {6, {"A_MTBPAR", "PerPis", "abc"}}};
    for (const auto& [emp, trechos] : casos) {
        ASSERT_EQ(LePar(1), "00") << c().Msg;
        EXPECT_EQ(LePar(emp), "99");
        for (const auto& t : trechos)
            EXPECT_NE(c().Msg.find(t), std::string::npos) << c().Msg;
        // Columns before the bad one are not moved either.
        EXPECT_EQ(std::make_tuple(A_MTBPAR().Empresa, Apara(A_MTBPAR().RazSocial), A_MTBPAR().CritPrcVenda),
                  std::make_tuple(int16_t{1}, "Mercado Um", int16_t{2}));
    }
    EXPECT_TRUE(Mostradas().empty());
}

ZTOLVAN_NOS_DOIS_BANCOS(LinhaQueNaoCabe);

} // namespace
