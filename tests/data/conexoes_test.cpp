#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "common/portas.h"
#include "data/banco_param.h"
#include "data/comunica.h"
#include "data/despachante.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class ConexaoPerdida : public SobreOsDoisBancos {};

TEST_P(ConexaoPerdida, AChamadaQueEncontraAQuedaDa99EAsSeguintesVoltamAFuncionar) {
    db->Direto("CREATE TABLE TBY (K INTEGER PRIMARY KEY)");
    ASSERT_TRUE(db->Conecta());
    Comunica& c = ComunicaAtual();
    PreparaComando("SELECT K FROM TBY WHERE K = ?");
    const int16_t cur = c.Cursor;
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

// Two terminals on one file: the second writer waits for the first unit to
// end instead of failing busy.
TEST(TerminaisNoMesmoArquivo, OSegundoQueAlteraEsperaOPrimeiroConfirmar) {
    BancoTeste db(Kind::Sqlite);
    ASSERT_TRUE(db.Pronto()) << db.Motivo();
    db.Direto("CREATE TABLE TBZ (K INTEGER PRIMARY KEY)");
    auto envia = [](const char* palavra, Valor dados) {
        Comunica& c = ComunicaAtual();
        if (dados.eLista()) PreparaComando("INSERT INTO TBZ (K) VALUES (?)");
        c.Transacao = palavra;
        c.Dados = std::move(dados);
        ExecutaComunica();
        return c.Status;
    };
    ASSERT_TRUE(db.Conecta());
    ASSERT_EQ(envia("EXECUTE", Valor::Lista{1}), "00");
    std::string segundo;
    std::thread outro([&] {
        PortasAtuais().mensagens = std::make_shared<MensagensGravadas>();
        ASSERT_TRUE(db.Conecta());
        segundo = envia("EXECUTE", Valor::Lista{2}) + "/" + envia("COMMIT", Valor());
        FechaConexao();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(envia("COMMIT", Valor()), "00");
    outro.join();
    EXPECT_EQ(segundo, "00/00");
}

} // namespace
