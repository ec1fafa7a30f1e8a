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
    void Abre(std::string servidor, std::string banco, int16_t silencioso = 0) {
        usuario = "veltra";
        senha = "tolquemarin";
        AbreConexao(servidor, banco, usuario, senha, silencioso);
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
    Abre("  aCCess ", db->Banco());
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_STREQ(ConectorAtual()->Tipo(), "ACCESS");
    EXPECT_NE(c().Conexao, 0);
    ConectorBD* primeiro = ConectorAtual();
    FechaConexao();
    Abre("ACCESS", db->Banco());
    EXPECT_EQ(ConectorAtual(), primeiro) << "an existing connector is reused";
    EXPECT_EQ(c().Status, "00");
}

TEST_F(AbreConexaoTeste, ArquivoQueNaoExisteDa99EMensagemCriticaVeltra) {
    Abre("ACCESS", db->Pasta() + "/nao-existe.db");
    EXPECT_EQ(c().Status, "99");
    ASSERT_EQ(db->mensagens->Mostradas().size(), 1u);
    const auto& m = db->mensagens->Mostradas()[0];
    EXPECT_EQ(m.Titulo, "Veltra");
    EXPECT_EQ(m.Tipo, 16);
    EXPECT_EQ(m.Texto, "99 - " + c().Msg);
    PreparaComando("SELECT 1");
    EXPECT_EQ(c().Status, "99") << "later calls fail with the connector's own status";
}

TEST_F(AbreConexaoTeste, ArquivoQueNaoEBancoDa99) {
    std::ofstream(db->Pasta() + "/lixo.db") << "isto não é um banco de dados, é só texto qualquer";
    Abre("ACCESS", db->Pasta() + "/lixo.db", 1);
    EXPECT_EQ(c().Status, "99");
    EXPECT_FALSE(c().Msg.empty());
    EXPECT_TRUE(db->mensagens->Mostradas().empty()) << "quiet: nothing shown";
}

TEST_F(AbreConexaoTeste, SemConfiguracaoServidorEBancoVemDoArmazemOuSaoInvalidos) {
    Abre("", "");
    EXPECT_EQ(c().Status, "99");
    EXPECT_EQ(c().Msg, "Entrada do Servidor Inválida");
    armazem->valores["servidor"] = "ACCESS";
    Abre("", "  ");
    EXPECT_EQ(c().Msg, "Entrada do Banco Inválida");
    EXPECT_EQ(ConectorAtual(), nullptr) << "no connector is made for invalid entries";
    armazem->valores["Banco"] = db->Banco();
    Abre("", "");
    EXPECT_EQ(c().Status, "00") << c().Msg;
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
    EXPECT_EQ(s, "ACCESS");
    EXPECT_EQ(b, db->Banco());
    EXPECT_EQ(u, "quem");
    EXPECT_EQ(p, "segredo");
}

TEST_F(AbreConexaoTeste, ServidorInalcancavelDa99) {
    Abre("127.0.0.1:1", "nenhum", 1);
    EXPECT_EQ(c().Status, "99");
    EXPECT_FALSE(c().Msg.empty());
    EXPECT_STREQ(ConectorAtual()->Tipo(), "SERVIDOR");
}

TEST_F(AbreConexaoTeste, SemConexaoTudoDa99) {
    PreparaComando("SELECT 1");
    EXPECT_EQ(c().Status, "99");
    c().Transacao = "COMMIT";
    ExecutaComunica();
    EXPECT_EQ(c().Status, "99");
    FechaConexao(); // nothing to close: no effect, no crash
}

} // namespace
