#include <gtest/gtest.h>

#include "common/portas.h"
#include "common/seguranca.h"
#include "data/banco_dados.h"
#include "data/banco_param.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/seguranca/seguranca_banco.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class SegurancaNoBanco : public SobreOsDoisBancos {
  protected:
    void SetUp() override {
        SobreOsDoisBancos::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        ASSERT_TRUE(db->Conecta()) << ComunicaAtual().Msg;
        std::string msg;
        ASSERT_TRUE(CriaTabelasSeguranca(msg)) << msg;
        ASSERT_TRUE(GravaOperadorSeguranca("MARIA", "s3nha", msg)) << msg;
        ASSERT_TRUE(GravaDireito("MARIA", "PJVELPEV", "DISPON", true, msg)) << msg;
        // PEDRO may authorise other things, and is explicitly denied this one.
        ASSERT_TRUE(GravaOperadorSeguranca("PEDRO", "outra", msg)) << msg;
        ASSERT_TRUE(GravaDireito("PEDRO", "PJVELPEV", "DISPON", false, msg)) << msg;
        ASSERT_TRUE(GravaDireito("PEDRO", "PJVELPEV", "DESCONTO", true, msg)) << msg;
        dialogo = std::make_shared<AutorizacaoFixa>();
        componente = std::make_unique<SegurancaBanco>(dialogo);
    }

    // Checks whether `operador` may sell without stock; the dialog answers
    // `quem` / `senha`.
    int16_t Checa(const std::string& quem, const std::string& senha,
                  int16_t codigo = seguranca::PedeAutorizacao) {
        dialogo->autorizador = quem;
        dialogo->senha = senha;
        int16_t r = -7;
        componente->ZProcessa(codigo, "PJVELPEV", "DISPON", operador, r, "9999", "");
        return r;
    }

    int Conta(const std::string& sql) {
        clsBancoDados banco;
        ResultadoComando r = banco.fcExecutaComando(1, sql, false);
        EXPECT_EQ(r.situacao, "00") << r.mensagem;
        return r.rsDadosRetorno.Eof() ? -1 : static_cast<int>(r.rsDadosRetorno.Fields("N").Value.inteiro());
    }

    std::shared_ptr<AutorizacaoFixa> dialogo;
    std::unique_ptr<SegurancaBanco> componente;
    std::string operador = "JOAO";
};

// Refused: a wrong password, someone denied this right, someone unknown, and
// anyone once the rights table is gone.
TEST_P(SegurancaNoBanco, SemODireitoSoQuemOTemComASenhaCertaLibera) {
    EXPECT_EQ(Checa("maria", "s3nha"), seguranca::Autorizado);
    ASSERT_EQ(dialogo->pedidas.size(), 1u);
    const auto& p = dialogo->pedidas[0];
    EXPECT_EQ(std::tie(p.Operador, p.Programa, p.Funcao), std::make_tuple("JOAO", "PJVELPEV", "DISPON"));
    EXPECT_EQ(operador, "maria");
    for (auto [quem, senha] : {std::pair{"MARIA", "errada"}, {"PEDRO", "outra"}, {"NINGUEM", "s3nha"}}) {
        operador = "JOAO";
        EXPECT_EQ(Checa(quem, senha), seguranca::Recusado) << quem;
        EXPECT_EQ(operador, "JOAO");
    }
    db->Direto("DROP TABLE TBSEGDIREITO");
    EXPECT_EQ(Checa("MARIA", "s3nha"), seguranca::Recusado);
}

TEST_P(SegurancaNoBanco, SoConsultaOuDialogoAbandonadoRecusaEComODireitoPassaSemDialogo) {
    dialogo->responde = false;
    EXPECT_EQ(Checa("MARIA", "s3nha"), seguranca::Recusado);
    dialogo->pedidas.clear();
    EXPECT_EQ(Checa("MARIA", "s3nha", seguranca::SoConsulta), seguranca::Recusado);
    std::string msg;
    ASSERT_TRUE(GravaDireito("JOAO", "PJVELPEV", "DISPON", true, msg)) << msg;
    EXPECT_EQ(Checa("", "", seguranca::SoConsulta), seguranca::Autorizado);
    EXPECT_EQ(Checa("", ""), seguranca::Autorizado);
    EXPECT_TRUE(dialogo->pedidas.empty());
    EXPECT_EQ(operador, "JOAO");
}

TEST_P(SegurancaNoBanco, RegravarTrocaSenhaEDireito) {
    std::string msg;
    ASSERT_TRUE(GravaOperadorSeguranca("MARIA", "nova", msg)) << msg;
    EXPECT_EQ(Checa("MARIA", "s3nha"), seguranca::Recusado);
    EXPECT_EQ(Checa("MARIA", "nova"), seguranca::Autorizado);
    ASSERT_TRUE(GravaDireito("MARIA", "PJVELPEV", "DISPON", false, msg)) << msg;
    operador = "JOAO";
    EXPECT_EQ(Checa("MARIA", "nova"), seguranca::Recusado);
    EXPECT_EQ(Conta("SELECT COUNT(*) AS N FROM TBSEGOPERADOR WHERE OPERADOR = 'MARIA'"), 1);
}

TEST_P(SegurancaNoBanco, GravacaoRecusadaDizPorqueENaoDeixaTransacaoAberta) {
    std::string msg;
    EXPECT_FALSE(GravaOperadorSeguranca("ANA", "", msg)) << "an empty password";
    EXPECT_FALSE(msg.empty());
    EXPECT_EQ(Conta("SELECT COUNT(*) AS N FROM TBSEGOPERADOR WHERE OPERADOR = 'ANA'"), 0);
    db->Direto("DROP TABLE TBSEGOPERADOR");
    db->Direto("CREATE TABLE TBSEGOPERADOR (OPERADOR VARCHAR(30) NOT NULL, SENHAHASH VARCHAR(255) NOT NULL, "
               "PRIMARY KEY (OPERADOR), CHECK (OPERADOR <> 'RUIM'))");
    msg.clear();
    EXPECT_FALSE(GravaOperadorSeguranca("RUIM", "x", msg));
    EXPECT_FALSE(msg.empty());
    // Another connection can write at once: nothing was left holding the database.
    EXPECT_NO_THROW(db->Direto("INSERT INTO TBSEGOPERADOR (OPERADOR, SENHAHASH) VALUES ('OUTRO', 'h')"));
}

// A right is a program's function; names compare trimmed and in any case,
// and quotes in them are harmless.
TEST_P(SegurancaNoBanco, DireitoEDoProgramaEDaFuncaoComNomesAparadosSemCaixaEAspasInofensivas) {
    std::string msg;
    ASSERT_TRUE(GravaDireito("  joão ", "pjvelpev", "dispon", true, msg)) << msg;
    EXPECT_TRUE(TemDireito("JOÃO", "PJVELPEV", "DISPON"));
    EXPECT_TRUE(TemDireito("PEDRO", "PJVELPEV", "DESCONTO"));
    EXPECT_FALSE(TemDireito("PEDRO", "PJVELPEV", "DISPON"));
    EXPECT_FALSE(TemDireito("MARIA", "OUTRO", "DISPON"));
    EXPECT_FALSE(TemDireito("", "PJVELPEV", "DISPON"));
    ASSERT_TRUE(GravaOperadorSeguranca("D'AVILA", "x'y", msg)) << msg;
    ASSERT_TRUE(GravaDireito("D'AVILA", "PJVELPEV", "DISPON", true, msg)) << msg;
    EXPECT_TRUE(TemDireito("D'AVILA", "PJVELPEV", "DISPON"));
    EXPECT_EQ(Checa("D'AVILA", "x'y"), seguranca::Autorizado);
    operador = "JOAO";
    EXPECT_EQ(Checa("X' OR '1'='1", "s3nha"), seguranca::Recusado);
    operador = "' OR PERMITE = 1 OR OPERADOR = '";
    EXPECT_EQ(Checa("", "", seguranca::SoConsulta), seguranca::Recusado);
    EXPECT_EQ(Conta("SELECT COUNT(*) AS N FROM TBSEGDIREITO"), 5);
}

TEST_P(SegurancaNoBanco, ChecagemNaoConfirmaNemMexeNoComunicaDoChamador) {
    db->Direto("CREATE TABLE TBX (N INTEGER PRIMARY KEY)");
    clsBancoDados banco;
    ASSERT_EQ(banco.fcExecutaComando(1, "INSERT INTO TBX (N) VALUES (1)", false).situacao, "00");
    Comunica& c = ComunicaAtual();
    c.Status = "23";
    c.Msg = "do chamador";
    c.Cursor = 7;
    EXPECT_EQ(Checa("MARIA", "s3nha"), seguranca::Autorizado);
    EXPECT_EQ(std::tie(c.Status, c.Msg, c.Cursor), std::make_tuple("23", "do chamador", int16_t{7}));
    c.Transacao = "ROLLBACK";
    c.Cursor = 0;
    ExecutaComunica();
    ASSERT_EQ(c.Status, "00") << c.Msg;
    EXPECT_EQ(Conta("SELECT COUNT(*) AS N FROM TBX"), 0);
}

TEST_P(SegurancaNoBanco, PelaChecagemDaBibliotecaComAFabrica) {
    PortasAtuais().seguranca = FabricaSegurancaBanco(dialogo);
    dialogo->autorizador = "MARIA";
    dialogo->senha = "s3nha";
    std::string op = "JOAO", autorizador;
    int16_t r = -7;
    GLO_ChecaSeguranca(1, "PJVELPEV", "DISPON", op, autorizador, r, "9999", int16_t{1}, false, "", "");
    EXPECT_EQ(std::tie(r, autorizador, op), std::make_tuple(seguranca::Autorizado, "MARIA", "JOAO"));
}

ZTOLVAN_NOS_DOIS_BANCOS(SegurancaNoBanco);

} // namespace
