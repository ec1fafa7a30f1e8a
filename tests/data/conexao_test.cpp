#include <gtest/gtest.h>

#include <fstream>

#include "apoio/banco_teste.h"
#include "common/portas.h"
#include "data/comunica.h"
#include "data/despachante.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class AbreConexaoTeste : public ::testing::Test {
  protected:
    void SetUp() override {
        db = std::make_unique<BancoTeste>(Kind::Sqlite);
        ASSERT_TRUE(db->Pronto()) << db->Motivo();
        armazem = std::make_shared<ArmazemMemoria>();
        PortasAtuais().armazem = armazem;
    }
    // Opens the thread's connection; gives back its status.
    std::string Abre(std::string servidor, std::string banco, int16_t silencioso = 0) {
        usuario = "veltra";
        senha = "tolquemarin";
        AbreConexao(servidor, banco, usuario, senha, silencioso);
        return c().Status;
    }
    Comunica& c() { return ComunicaAtual(); }

    std::unique_ptr<BancoTeste> db;
    std::shared_ptr<ArmazemMemoria> armazem;
    std::string usuario, senha;
};

TEST_F(AbreConexaoTeste, AccessEmQualquerCaixaEComBrancosEscolheOArquivo) {
    EXPECT_TRUE(EhServidorArquivo(" access "));
    EXPECT_TRUE(EhServidorArquivo("Access"));
    EXPECT_FALSE(EhServidorArquivo("accessdb"));
    ASSERT_EQ(Abre("  aCCess ", db->Banco()), "00") << c().Msg;
    EXPECT_STREQ(ConectorAtual()->Tipo(), "ACCESS");
    EXPECT_NE(c().Conexao, 0);
    ConectorBD* primeiro = ConectorAtual();
    FechaConexao();
    Abre("ACCESS", db->Banco());
    EXPECT_EQ(ConectorAtual(), primeiro) << "an existing connector is reused";
    EXPECT_EQ(c().Status, "00");
}

// A missing file is shown (critical, "Veltra"); a file that is no database
// fails quietly when asked to.
TEST_F(AbreConexaoTeste, ArquivoQueNaoExisteOuNaoEBancoDa99) {
    EXPECT_EQ(Abre("ACCESS", db->Pasta() + "/nao-existe.db"), "99");
    ASSERT_EQ(db->mensagens->Mostradas().size(), 1u);
    const auto& m = db->mensagens->Mostradas()[0];
    EXPECT_EQ(std::tie(m.Titulo, m.Tipo, m.Texto), std::make_tuple("Veltra", 16, "99 - " + c().Msg));
    PreparaComando("SELECT 1");
    EXPECT_EQ(c().Status, "99") << "later calls fail with the connector's own status";
    db->mensagens->Limpa();
    std::ofstream(db->Pasta() + "/lixo.db") << "isto não é um banco de dados, é só texto qualquer";
    EXPECT_EQ(Abre("ACCESS", db->Pasta() + "/lixo.db", 1), "99");
    EXPECT_FALSE(c().Msg.empty());
    EXPECT_TRUE(db->mensagens->Mostradas().empty()) << "quiet: nothing shown";
}

TEST_F(AbreConexaoTeste, SemConfiguracaoServidorEBancoVemDoArmazemOuSaoInvalidos) {
    EXPECT_EQ(Abre("", ""), "99");
    EXPECT_EQ(c().Msg, "Entrada do Servidor Inválida");
    armazem->valores["servidor"] = "ACCESS";
    Abre("", "  ");
    EXPECT_EQ(c().Msg, "Entrada do Banco Inválida");
    EXPECT_EQ(ConectorAtual(), nullptr) << "no connector is made for invalid entries";
    armazem->valores["Banco"] = db->Banco();
    EXPECT_EQ(Abre("", ""), "00") << c().Msg;
    EXPECT_EQ(usuario, "veltra") << "user and password stay the caller's";
}

TEST_F(AbreConexaoTeste, ArquivoDeConfiguracaoPreencheOQueVeioVazio) {
    const std::string ini = db->Pasta() + "/conexao.ini";
    std::ofstream(ini) << "[conexao]\nServidor=ACCESS\nBanco=" << db->Banco()
                       << "\nUSUARIO=quem\nSenha=segredo\n";
    setenv("ZTOLVAN_CONFIG", ini.c_str(), 1);
    std::string s, b, u = "veltra", p = "tolquemarin";
    int16_t q = 1;
    AbreConexao(s, b, u, p, q);
    EXPECT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(std::tie(s, b, u, p), std::make_tuple("ACCESS", db->Banco(), "quem", "segredo"));
}

// Without a connection every call fails, and closing is harmless.
TEST_F(AbreConexaoTeste, ServidorInalcancavelOuSemConexaoTudoDa99) {
    PreparaComando("SELECT 1");
    EXPECT_EQ(c().Status, "99");
    c().Transacao = "COMMIT";
    ExecutaComunica();
    EXPECT_EQ(c().Status, "99");
    FechaConexao();
    EXPECT_EQ(Abre("127.0.0.1:1", "nenhum", 1), "99");
    EXPECT_FALSE(c().Msg.empty());
    EXPECT_STREQ(ConectorAtual()->Tipo(), "SERVIDOR");
}

} // namespace
