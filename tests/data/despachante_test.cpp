#include <gtest/gtest.h>

#include <filesystem>
#include <sqlite3.h>
#include <unistd.h>

#include "common/conversao.h"
#include "common/texto.h"
#include "data/banco_dados.h"
#include "data/banco_param.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/postgres/conector_postgres.h"
#include "data/sqlite/conector_sqlite.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Despachante : public SobreOsDoisBancos {
  protected:
    void SetUp() override {
        SobreOsDoisBancos::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        db->Direto("CREATE TABLE TBX (EMPRESA INTEGER NOT NULL, CODIGO VARCHAR(20) NOT NULL, "
                   "VALOR DOUBLE PRECISION, OBS VARCHAR(40), PRIMARY KEY (EMPRESA, CODIGO))");
        db->Direto("INSERT INTO TBX VALUES (1, 'A', 1.5, 'um'), (1, 'B', 2.5, NULL), (1, 'C', 3.5, 'tres'), "
                   "(2, 'A', 9, 'outra')");
        gravador = GravaChamadas(db->kind());
        ASSERT_TRUE(db->Conecta()) << ComunicaAtual().Msg;
    }

    Comunica& c() { return ComunicaAtual(); }
    std::string Codigo() { return Apara(c().Retorno[1].texto()); }

    int16_t Prepara(const std::string& sql) {
        PreparaComando(sql);
        EXPECT_EQ(c().Status, "00") << c().Msg;
        return c().Cursor;
    }
    // Sends a command word through the dispatcher; gives back the status.
    std::string Envia(const std::string& palavra, int16_t cursor, Valor dados = Valor(std::string())) {
        c().Transacao = palavra;
        c().Cursor = cursor;
        c().Dados = std::move(dados);
        ExecutaComunica();
        return c().Status;
    }
    std::vector<std::string> Codigos(int16_t cur, Valor chave) {
        std::vector<std::string> r;
        for (Envia("OPEN", cur, std::move(chave)); c().Status == "00"; Envia("NEXT", cur))
            r.push_back(Codigo());
        EXPECT_EQ(c().Status, "23");
        Envia("CLOSE", cur);
        return r;
    }
    int Conta(const std::string& where) {
        EXPECT_EQ(Envia("REQUERY", 0, "SELECT COUNT(*) FROM TBX WHERE " + where), "00") << c().Msg;
        return static_cast<int>(c().Retorno[0].inteiro());
    }
    int16_t PreparaInsercao() {
        return Prepara("INSERT INTO TBX (EMPRESA, CODIGO, VALOR, OBS) VALUES (?, ?, ?, ?)");
    }
    static Valor Linha(int emp, const char* cod) { return Valor::Lista{emp, cod, 1.0, "x"}; }

    const char* Sel = "SELECT EMPRESA, CODIGO, VALOR, OBS FROM TBX WHERE EMPRESA = ? ORDER BY CODIGO";
    ConectorGravador* gravador = nullptr;
};

TEST_P(Despachante, OpenPosicionaNaPrimeiraLinhaComAsColunasNaOrdemDoSelectOu23SemLinha) {
    int16_t cur = Prepara(Sel);
    ASSERT_EQ(Envia("OPEN", cur, Valor::Lista{1}), "00") << c().Msg;
    EXPECT_EQ(c().Retorno, Valor(Valor::Lista{1, "A", 1.5, "um"}));
    Envia("NEXT", cur);
    EXPECT_TRUE(c().Retorno[3].vazio()) << "a NULL column arrives empty";
    EXPECT_EQ(Envia("OPEN", cur, Valor::Lista{77}), "23");
    EXPECT_EQ(c().Retorno, Valor(std::string()));
}

TEST_P(Despachante, MovimentosNoResultadoAbertoDao23ForaDasPontas) {
    int16_t cur = Prepara(Sel);
    EXPECT_EQ(Codigos(cur, Valor::Lista{1}), (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(c().Status, "00") << "CLOSE after the end";
    Envia("OPEN", cur, Valor::Lista{1});
    std::string vistos;
    for (const char* palavra : {"LAST", "PREV", "FIRST"}) {
        Envia(palavra, cur);
        vistos += Codigo();
    }
    EXPECT_EQ(vistos, "CBA");
    EXPECT_EQ(Envia("PREV", cur), "23");
    Envia("NEXT", cur);
    EXPECT_EQ(Codigo(), "A") << "back in from before the first row";
}

// Hosts send their words in any case, with spaces about them; a word the
// connector does not take fails with its name in upper case.
TEST_P(Despachante, PalavrasEmQualquerCaixaEAsDesconhecidasDao99ComSeuNome) {
    int16_t cur = Prepara(Sel);
    ASSERT_EQ(Envia(" open ", cur, Valor::Lista{1}), "00") << c().Msg;
    EXPECT_EQ(Envia("Next", cur), "00");
    EXPECT_EQ(Codigo(), "B");
    EXPECT_EQ(Envia("last  ", cur), "00");
    EXPECT_EQ(Codigo(), "C");
    EXPECT_EQ(Envia(" #insert", cur), "99");
    EXPECT_EQ(c().Msg, "Comando #INSERT não é suportado por este conector");
    EXPECT_EQ(Envia("nexts", cur), "99");
    EXPECT_EQ(c().Msg, "Comando desconhecido: NEXTS");
    EXPECT_EQ(Envia("requery", 0, Valor::Lista{1}), "99");
    EXPECT_EQ(c().Msg, "REQUERY sem cursor espera o texto de um comando");
    EXPECT_EQ(Envia("PREV", cur), "00") << "the open result kept its place through the failures";
    EXPECT_EQ(Codigo(), "B");
}

TEST_P(Despachante, RequeryEExecuteDeConsultaRodamDeNovoComOutrosValores) {
    int16_t cur = Prepara(Sel);
    Envia("OPEN", cur, Valor::Lista{1});
    ASSERT_EQ(Envia("REQUERY", cur, Valor::Lista{2}), "00");
    EXPECT_EQ(c().Retorno[3].texto(), "outra");
    EXPECT_EQ(Envia("NEXT", cur), "23");
    ASSERT_EQ(Envia("EXECUTE", cur, Valor::Lista{1}), "00");
    EXPECT_EQ(c().Retorno[3].texto(), "um");
}

// REQUERY with handle 0 keeps nothing; OPEN with handle 0 keeps its result
// under a new handle until CLOSE frees it. Neither prepares.
TEST_P(Despachante, TextoSemCursorRodaSemPrepareEOOpenDevolveOCursorDoResultado) {
    ASSERT_EQ(Envia("REQUERY", 0, "SELECT OBS FROM TBX WHERE EMPRESA = '2' AND CODIGO = 'A'"), "00")
        << c().Msg;
    EXPECT_EQ(c().Retorno[0].texto(), "outra");
    ASSERT_EQ(Envia("OPEN", 0, "SELECT CODIGO FROM TBX WHERE EMPRESA = '1' ORDER BY CODIGO"), "00");
    int16_t cur = c().Cursor;
    ASSERT_NE(cur, 0);
    Envia("NEXT", cur);
    EXPECT_EQ(Apara(c().Retorno[0].texto()), "B");
    EXPECT_EQ(Envia("CLOSE", cur), "00");
    EXPECT_EQ(Envia("NEXT", cur), "99") << "a closed text cursor is gone";
    EXPECT_EQ(gravador->Palavras(), (std::vector<std::string>{"REQUERY", "OPEN", "NEXT", "CLOSE", "NEXT"}));
    ASSERT_EQ(Envia("OPEN", 0, "SELECT CODIGO FROM TBX"), "00");
    EXPECT_EQ(c().Cursor, cur) << "its number is free again";
}

// A refused insert ("22") and a failing statement leave the unit's earlier
// changes pending, whether the unit's first change or a later one fails. On
// the server, a change costs one round trip, its BEGIN or savepoint pair
// travelling with it.
TEST_P(Despachante, InsertComChaveExistenteDa22EAUnidadeSegueDepoisDeUmaFalha) {
    int16_t ins = PreparaInsercao();
    EXPECT_EQ(Envia("EXECUTE", ins, Linha(1, "A")), "22") << "the unit's first change";
    const uint64_t antes = ConectorPostgres::IdasEVoltas();
    EXPECT_EQ(Envia("EXECUTE", ins, Linha(3, "N")), "00") << c().Msg;
    EXPECT_EQ(Envia("EXECUTE", ins, Linha(3, "O")), "00") << c().Msg;
    if (db->kind() == Kind::Postgres) {
        EXPECT_EQ(ConectorPostgres::IdasEVoltas() - antes, 2u);
    }
    EXPECT_EQ(Envia("EXECUTE", ins, Linha(1, "A")), "22") << c().Msg;
    EXPECT_EQ(Envia("REQUERY", 0, "SELECT NADA FROM TBX"), "99");
    EXPECT_EQ(Envia("EXECUTE", ins, Linha(3, "M")), "00") << c().Msg;
    EXPECT_EQ(Envia("COMMIT", 0), "00");
    EXPECT_EQ(Conta("EMPRESA = 3"), 3);
}

TEST_P(Despachante, RollbackDescartaTudoDesdeOUltimoCommitEOConfirmadoSobreviveAReabrir) {
    int16_t ins = PreparaInsercao();
    Envia("EXECUTE", ins, Linha(5, "1"));
    Envia("COMMIT", 0);
    Envia("EXECUTE", ins, Linha(5, "2"));
    Envia("EXECUTE", ins, Linha(5, "3"));
    int16_t upd = Prepara("UPDATE TBX SET OBS = ? WHERE EMPRESA = ?");
    Envia("EXECUTE", upd, Valor::Lista{"mudou", 5});
    EXPECT_EQ(Conta("EMPRESA = 5"), 3) << "pending changes are seen on the same connection";
    EXPECT_EQ(Envia("ROLLBACK", 0), "00");
    EXPECT_EQ(Conta("EMPRESA = 5"), 1);
    EXPECT_EQ(Conta("OBS = 'mudou'"), 0);
    Envia("EXECUTE", ins, Linha(5, "Y")); // never committed
    FechaConexao();
    ASSERT_TRUE(db->Conecta());
    EXPECT_EQ(Conta("EMPRESA = 5"), 1);
}

TEST_P(Despachante, UmCursorPreparadoServeMuitasVezes) {
    int16_t ins = PreparaInsercao();
    for (int i = 0; i < 50; ++i) {
        ASSERT_EQ(Envia("EXECUTE", ins, Linha(7, std::to_string(i).c_str())), "00") << c().Msg;
        Envia("COMMIT", 0);
    }
    EXPECT_EQ(Conta("EMPRESA = 7"), 50);
    const auto palavras = gravador->Palavras();
    EXPECT_EQ(std::count(palavras.begin(), palavras.end(), "PREPARE"), 1);
}

TEST_P(Despachante, FalhasDao99ComAMensagemDoBancoEAsChamadasSeguintesFuncionam) {
    PreparaComando("SELEC CODIGO FROM TBX");
    EXPECT_EQ(c().Status, "99");
    EXPECT_FALSE(c().Msg.empty());
    int16_t cur = Prepara(Sel);
    EXPECT_EQ(Envia("OPEN", cur, Valor::Lista{1, 2}), "99") << "too many values";
    EXPECT_NE(c().Msg.find("parâmetros"), std::string::npos);
    EXPECT_EQ(Envia("OPEN", cur, Valor(std::string())), "99") << "no values";
    EXPECT_EQ(Envia("NEXT", 999), "99") << "unknown handle";
    EXPECT_EQ(Envia("FETCH", cur), "99") << "unknown command word";
    EXPECT_EQ(Envia("#INSERT", cur, Valor::Lista{1, "Q", 1.0, "q"}), "99");
    EXPECT_NE(c().Msg.find("#INSERT"), std::string::npos);
    EXPECT_EQ(Envia("REQUERY", 0, "SELECT * FROM TABELA_QUE_NAO_EXISTE"), "99");
    EXPECT_EQ(Codigos(cur, Valor::Lista{1}).size(), 3u);
}

TEST_P(Despachante, BancoDadosDevolveLinhasPorNomeDeColuna) {
    clsBancoDados bd;
    ASSERT_TRUE(bd.fcAbreBancoDadosVeltra(1));
    auto r = bd.fcExecutaComando(
        1, "SELECT CODIGO, OBS AS Observacao, '' AS Branco FROM TBX WHERE EMPRESA = '1' ORDER BY CODIGO", false);
    ASSERT_EQ(r.situacao, "00") << r.mensagem;
    std::vector<std::string> vistos;
    for (auto& rs = r.rsDadosRetorno; !rs.Eof(); rs.MoveNext()) {
        // An empty text is a text; only a NULL comes back with no value.
        const Valor& obs = rs.Fields("OBSERVACAO").Value;
        vistos.push_back(Apara(rs.Fields("codigo").Value.texto()) + "/" + (obs.vazio() ? "NULL" : CStr(obs)) +
                         (rs.Fields("BRANCO").Value.eTexto() ? "/texto" : "/?"));
    }
    EXPECT_EQ(vistos, (std::vector<std::string>{"A/um/texto", "B/NULL/texto", "C/tres/texto"}));
    EXPECT_EQ(bd.fcExecutaComando(1, "", false).situacao, "99");
}

// A query sent ahead answers its own Consulta in the one round trip it
// took; anything run in between drops it, so no change of the connection's
// own is missed.
TEST_P(Despachante, ConsultaAntecipadaNuncaDevolveLinhasVelhas) {
    clsBancoDados bd;
    const std::string sql = "SELECT CODIGO FROM TBX WHERE EMPRESA = 1 ORDER BY CODIGO";
    const auto codigos = [&](const std::string& texto) {
        auto r = bd.fcExecutaComando(1, texto, false);
        std::string vistos = r.situacao + ":";
        for (auto& rs = r.rsDadosRetorno; !rs.Eof(); rs.MoveNext())
            vistos += Apara(rs.Fields("CODIGO").Value.texto());
        return vistos;
    };
    const uint64_t antes = ConectorPostgres::IdasEVoltas();
    bd.Antecipa(1, sql);
    EXPECT_EQ(codigos(sql), "00:ABC");
    if (db->kind() == Kind::Postgres) {
        EXPECT_EQ(ConectorPostgres::IdasEVoltas() - antes, 1u);
    }

    bd.Antecipa(1, sql);
    EXPECT_EQ(codigos("SELECT CODIGO FROM TBX WHERE EMPRESA = 2"), "00:A") << "another text runs as its own";
    EXPECT_EQ(codigos(sql), "00:ABC");

    const int16_t ins = PreparaInsercao();
    bd.Antecipa(1, sql);
    ASSERT_EQ(Envia("EXECUTE", ins, Linha(1, "D")), "00") << c().Msg;
    EXPECT_EQ(codigos(sql), "00:ABCD") << "the change made after the early query is seen";
    EXPECT_EQ(Envia("ROLLBACK", 0), "00");

    bd.Antecipa(1, "SELECT NADA FROM TBX");
    const auto falha = bd.fcExecutaComando(1, "SELECT NADA FROM TBX", false);
    EXPECT_EQ(falha.situacao, "99");
    EXPECT_NE(Maiusculas(falha.mensagem).find("NADA"), std::string::npos) << falha.mensagem;
    EXPECT_EQ(codigos(sql), "00:ABC");
}

ZTOLVAN_NOS_DOIS_BANCOS(Despachante);

TEST(DialetoSqlite, IsNullViraIfNullForaDeAspas) {
    EXPECT_EQ(ConectorSqlite::TraduzDialeto("SELECT ISNULL(a,'x'), isnull (b, 0) FROM t"),
              "SELECT IFNULL(a,'x'), IFNULL (b, 0) FROM t");
    EXPECT_EQ(ConectorSqlite::TraduzDialeto("SELECT 'ISNULL(' , \"ISNULL(\" FROM t WHERE a ISNULL"),
              "SELECT 'ISNULL(' , \"ISNULL(\" FROM t WHERE a ISNULL")
        << "quoted texts, names and the postfix operator stay";
    EXPECT_EQ(ConectorSqlite::TraduzDialeto("SELECT MYISNULL(a) FROM t"), "SELECT MYISNULL(a) FROM t");
}

// Opens a new file through the connector and reads a few hundred texts;
// 0 when that went well and SQLite counted no allocation.
int AbreELeSemContar() {
    const auto arquivo =
        std::filesystem::temp_directory_path() / ("ztolvan-memoria-" + std::to_string(getpid()) + ".db");
    std::string msg, st, servidor = "ACCESS", banco = arquivo.string(), usuario, senha;
    int16_t conexao = 0;
    bool ok = ConectorSqlite::CriaArquivo(banco, msg);
    ConectorSqlite c;
    c.ZConnectOpen(servidor, banco, usuario, senha, conexao, st, msg);
    TabelaResultado t;
    c.Consulta(conexao,
               "WITH RECURSIVE s(g) AS (SELECT 1 UNION ALL SELECT g + 1 FROM s WHERE g < 500) "
               "SELECT group_concat(printf('%08d', g)) FROM s",
               t, st, msg);
    ok = ok && st == "00" && t.linhas.size() == 1;
    c.ZConnectClose(conexao);
    std::filesystem::remove(arquivo);
    return ok && sqlite3_memory_highwater(0) == 0 ? 0 : 1;
}

// The file database is opened with SQLite's allocation count off: every
// statement's allocations would otherwise take one process-wide mutex. Run in
// a process of its own, where the component is the first to open a file.
TEST(ConectorSqliteProcesso, AbreArquivosSemContarAlocacoes) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::exit(AbreELeSemContar()), ::testing::ExitedWithCode(0), "");
}

} // namespace
