#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "common/portas.h"
#include "data/modules/modulos_teste.h"
#include "entry/sessao.h"
#include "entry/settings/configuracao.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Configuracao : public ComEsquema {
  protected:
    void SetUp() override {
        ComEsquema::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        armazem = std::make_shared<ArmazemMemoria>();
        PortasAtuais().armazem = armazem;
        setenv("ZTOLVAN_LOG_DIR", db->Pasta().c_str(), 1);
        SessaoAtual().Operador = "DEMO";
    }
    void Grava(const std::string& usuario, const std::string& chave, const std::string& valor) {
        db->Direto("INSERT INTO TBREGSRV (usuario, chave, valor) VALUES ('" + usuario + "', '" + chave +
                   "', '" + valor + "')");
    }
    int LeiturasDaTabela() const {
        int n = 0;
        for (auto& c : gravador->chamadas)
            n += c.Texto.find("FROM TBREGSRV") != std::string::npos;
        return n;
    }
    std::string Log() const {
        std::string tudo;
        for (auto& e : std::filesystem::directory_iterator(db->Pasta()))
            if (e.path().extension() == ".log") {
                std::ifstream f(e.path());
                tudo += std::string(std::istreambuf_iterator<char>(f), {});
            }
        return tudo;
    }

    std::shared_ptr<ArmazemMemoria> armazem;
};

TEST_P(Configuracao, ValorDaTabelaDoOperadorVenceOArmazem) {
    Grava("OUTRO", "PRECO VENDA", "2");
    Grava("DEMO", "PRECO VENDA", "3");
    armazem->valores["PRECO VENDA"] = "5";
    LerAjuste(Ajuste::PrecoVenda);
    EXPECT_EQ(SessaoAtual().PrecoVenda, 3);
}

TEST_P(Configuracao, ValorEmBrancoNaTabelaDaOPadraoSemLerOArmazem) {
    Grava("DEMO", "DESCONTO CASCATA", "   ");
    armazem->valores["DESCONTO CASCATA"] = "SIM";
    LerAjuste(Ajuste::DescontoCascata);
    EXPECT_EQ(SessaoAtual().DescontoCascata, "NAO");
}

TEST_P(Configuracao, SemLinhaVemDoArmazemOuDoPadraoEFicaNoLog) {
    armazem->valores["BLOQUEIA ITENS"] = "SIM";
    LerAjuste(Ajuste::BloqueiaItens);
    EXPECT_EQ(SessaoAtual().BloqueiaItens, "SIM");
    LerAjuste(Ajuste::CobraICMSSubstituto);
    EXPECT_EQ(SessaoAtual().CobraICMSSubstituto, "SIM") << "the default";
    const std::string log = Log();
    EXPECT_NE(log.find("Rotina: Registro_Consultar_Dados - Erro= "), std::string::npos) << log;
}

TEST_P(Configuracao, Falha99PassaTudoParaOArmazemSemVoltarATabela) {
    db->Direto("DROP TABLE TBREGSRV");
    armazem->valores["PRECO VENDA"] = "2";
    LerAjuste(Ajuste::PrecoVenda);
    EXPECT_TRUE(SemTabelaRegistro());
    EXPECT_EQ(SessaoAtual().PrecoVenda, 2);
    const int antes = LeiturasDaTabela();
    LerAjuste(Ajuste::BloqueiaItens);
    LerAjuste(Ajuste::TipoPrecoCompra);
    EXPECT_EQ(LeiturasDaTabela(), antes);
    EXPECT_EQ(SessaoAtual().TipoPrecoCompra, " ");
}

TEST_P(Configuracao, IcmsAntecipadoEmBrancoNoArmazemLeNao) {
    armazem->valores["ICMS Antecipado"] = "  ";
    LerAjuste(Ajuste::ICMSAntecipado);
    EXPECT_EQ(SessaoAtual().ICMSAntecipado, "NAO");
}

TEST_P(Configuracao, NumeroInvalidoDaOPadraoEDizNoLogQualAjusteCorrigir) {
    Grava("DEMO", "PRECO VENDA", "dois");
    Grava("DEMO", "Empresa Origem", "70000");
    LerAjuste(Ajuste::PrecoVenda);
    LerAjuste(Ajuste::EmpresaOrigem);
    EXPECT_EQ(SessaoAtual().PrecoVenda, 1);
    EXPECT_EQ(SessaoAtual().EmpresaOrigem, 0);
    const std::string log = Log();
    EXPECT_NE(log.find("\"PRECO VENDA\""), std::string::npos) << log;
    EXPECT_NE(log.find("\"Empresa Origem\""), std::string::npos) << log;
}

TEST_P(Configuracao, ConsultaDevolveStatusBarraValor) {
    Grava("DEMO", "IMPRESSORA MATRICIAL", " SIM ");
    EXPECT_EQ(Registro_Consultar_Dados("DEMO", "IMPRESSORA MATRICIAL"), "00/SIM");
    const Chamada& ultima = gravador->chamadas.back();
    EXPECT_EQ(ultima.Transacao, "REQUERY");
    EXPECT_EQ(ultima.Cursor, 0);
    EXPECT_EQ(ultima.Texto,
              "SELECT usuario, chave, valor, dtinc, hrinc, dtatu, hratu, usuarioatu, usuarioinc FROM "
              "TBREGSRV WHERE usuario = 'DEMO' AND chave = 'IMPRESSORA MATRICIAL'");
}

ZTOLVAN_NOS_DOIS_BANCOS(Configuracao);

} // namespace
