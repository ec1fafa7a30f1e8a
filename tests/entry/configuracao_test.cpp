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

// The operator's row wins over the store (another operator's does not count);
// a blank row gives the default without reading the store.
TEST_P(Configuracao, ValorDaTabelaDoOperadorVenceOArmazemEEmBrancoDaOPadrao) {
    Grava("OUTRO", "PRECO VENDA", "2");
    Grava("DEMO", "PRECO VENDA", "3");
    Grava("DEMO", "DESCONTO CASCATA", "   ");
    armazem->valores = {{"PRECO VENDA", "5"}, {"DESCONTO CASCATA", "SIM"}};
    LerAjuste(Ajuste::PrecoVenda);
    LerAjuste(Ajuste::DescontoCascata);
    EXPECT_EQ(SessaoAtual().PrecoVenda, 3);
    EXPECT_EQ(SessaoAtual().DescontoCascata, "NAO");
}

// With no row the store answers, a blank there reading as NAO for ICMS
// Antecipado, else the default; the log names the routine.
TEST_P(Configuracao, SemLinhaVemDoArmazemOuDoPadraoEFicaNoLog) {
    armazem->valores = {{"BLOQUEIA ITENS", "SIM"}, {"ICMS Antecipado", "  "}};
    LerAjuste(Ajuste::BloqueiaItens);
    LerAjuste(Ajuste::CobraICMSSubstituto);
    LerAjuste(Ajuste::ICMSAntecipado);
    const Sessao& s = SessaoAtual();
    EXPECT_EQ(std::tie(s.BloqueiaItens, s.CobraICMSSubstituto, s.ICMSAntecipado),
              std::make_tuple("SIM", "SIM", "NAO"));
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

TEST_P(Configuracao, NumeroInvalidoDaOPadraoEDizNoLogQualAjusteCorrigir) {
    Grava("DEMO", "PRECO VENDA", "dois");
    Grava("DEMO", "Empresa Origem", "70000");
    LerAjuste(Ajuste::PrecoVenda);
    LerAjuste(Ajuste::EmpresaOrigem);
    EXPECT_EQ(std::make_tuple(SessaoAtual().PrecoVenda, SessaoAtual().EmpresaOrigem), std::make_tuple(1, 0));
    const std::string log = Log();
    for (const char* ajuste : {"\"PRECO VENDA\"", "\"Empresa Origem\""})
        EXPECT_NE(log.find(ajuste), std::string::npos) << log;
}

TEST_P(Configuracao, ConsultaDevolveStatusBarraValor) {
    Grava("DEMO", "IMPRESSORA MATRICIAL", " SIM ");
    EXPECT_EQ(Registro_Consultar_Dados("DEMO", "IMPRESSORA MATRICIAL"), "00/SIM");
    const Chamada& ultima = gravador->chamadas.back();
    EXPECT_EQ(
        std::tie(ultima.Transacao, ultima.Cursor, ultima.Texto),
        std::make_tuple("REQUERY", int16_t{0},
                        "SELECT usuario, chave, valor, dtinc, hrinc, dtatu, hratu, usuarioatu, usuarioinc "
                        "FROM TBREGSRV WHERE usuario = 'DEMO' AND chave = 'IMPRESSORA MATRICIAL'"));
}

ZTOLVAN_NOS_DOIS_BANCOS(Configuracao);

} // namespace
