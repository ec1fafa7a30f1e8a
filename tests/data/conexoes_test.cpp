#include <gtest/gtest.h>

#include "data/banco_param.h"
#include "data/comunica.h"
#include "data/despachante.h"

#include <chrono>
#include <thread>

#include "common/portas.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class ConexaoPerdida : public SobreOsDoisBancos {};

TEST_P(ConexaoPerdida, AChamadaQueEncontraAQuedaDa99EAsSeguintesVoltamAFuncionar) {
    db->Direto("CREATE TABLE TBY (K INTEGER PRIMARY KEY)");
    ASSERT_TRUE(db->Conecta());
    Comunica& c = ComunicaAtual();
    PreparaComando("SELECT K FROM TBY WHERE K = ?");
    int16_t cur = c.Cursor;
    db->Direto("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name = 'ztolvan'");
    c.Transacao = "OPEN";
    c.Cursor = cur;
    c.Dados = Valor::Lista{1};
    ExecutaComunica();
    EXPECT_EQ(c.Status, "99");
    EXPECT_FALSE(c.Msg.empty());
    ExecutaComunica();
    EXPECT_EQ(c.Status, "23") << "reconnected, and the statement prepared again: " << c.Msg;
}

// Only a server connection can drop.
INSTANTIATE_TEST_SUITE_P(, ConexaoPerdida, ::testing::Values(Kind::Postgres), NomeDoParametro);

} // namespace

namespace {

// Two terminals on one file: the second writer waits for the first unit to
// end instead of failing busy.
TEST(TerminaisNoMesmoArquivo, OSegundoQueAlteraEsperaOPrimeiroConfirmar) {
    BancoTeste db(Kind::Sqlite);
    ASSERT_TRUE(db.Pronto()) << db.Motivo();
    db.Direto("CREATE TABLE TBZ (K INTEGER PRIMARY KEY)");
    auto insere = [](int k) {
        Comunica& c = ComunicaAtual();
        PreparaComando("INSERT INTO TBZ (K) VALUES (?)");
        c.Transacao = "EXECUTE";
        c.Dados = Valor::Lista{k};
        ExecutaComunica();
        return c.Status;
    };
    auto confirma = [] {
        ComunicaAtual().Transacao = "COMMIT";
        ExecutaComunica();
        return ComunicaAtual().Status;
    };
    ASSERT_TRUE(db.Conecta());
    ASSERT_EQ(insere(1), "00");
    std::string segundo;
    std::thread outro([&] {
        PortasAtuais().mensagens = std::make_shared<MensagensGravadas>();
        ASSERT_TRUE(db.Conecta());
        segundo = insere(2) + "/" + confirma();
        FechaConexao();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(confirma(), "00");
    outro.join();
    EXPECT_EQ(segundo, "00/00");
}

} // namespace
