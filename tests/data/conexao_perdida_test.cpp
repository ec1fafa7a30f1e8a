#include <gtest/gtest.h>

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
