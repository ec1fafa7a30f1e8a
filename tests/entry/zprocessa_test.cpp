#include <gtest/gtest.h>

#include <thread>

#include "apoio/componente_teste.h"
#include "common/portas.h"
#include "common/seguranca.h"
#include "common/texto.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

// What ZProcessa hands back, with the host's variables.
struct Chamada {
    int16_t empresa = 1, opcao = 0, tpmov = 5, statusret = -7, zstatus = 9;
    int32_t codigo = -1, numdoc = 100;
    std::string operador = " TESTE ", senha = "x", origem = "V", mens = "lixo";
    Valor dados = Valor::Lista{12, "1", -1, "SP", "MG", "RJ", "PR"};
    std::optional<int16_t> tipo;

    void Faz(consultalista& c) {
        int16_t t = tipo.value_or(0);
        bool inativos = false, captura = false;
        c.ZProcessa(empresa, operador, senha, opcao, codigo, origem, numdoc, tpmov, statusret, zstatus, mens,
                    &dados, tipo ? &t : nullptr, &inativos, &captura);
    }
};

class ZProcessaTeste : public ComComponente {};

TEST_P(ZProcessaTeste, OpcaoZeroPreencheOContextoESaiComStatus1SemMostrarNada) {
    Chamada c;
    c.Faz(*componente);
    const Sessao& s = SessaoAtual();
    EXPECT_EQ(std::tie(c.statusret, c.zstatus, c.mens), std::make_tuple(1, 0, ""));
    EXPECT_EQ(std::tie(s.Operador, s.Origem, s.OrigemDocumento, s.NumDoc, s.TpMov, s.Versao),
              std::make_tuple("TESTE", "V", true, 100, 5, "1.0.0001"));
    EXPECT_EQ(std::tie(s.NatOper, s.DadosVenda1, s.DadosVenda2, s.DadosVenda6, s.TipoPreco),
              std::make_tuple(12, "1", -1, "PR", "1"));
    EXPECT_EQ(Apara(A_MTBPAR().UF), "SP") << "the company record is read";
    EXPECT_TRUE(Mostradas().empty());
}

TEST_P(ZProcessaTeste, TipoDePrecoPelasRegras) {
    struct Caso {
        const char* nome;
        std::optional<int16_t> tipoDado;
        const char* origem;
        std::vector<std::pair<std::string, std::string>> ajustes;
        const char* esperado;
    } casos[] = {
        {"the given type wins", 3, "V", {{"Preco Agrupamento", "5"}}, "3"},
        {"a negative type is worked out", -2, "V", {{"Preco Agrupamento", "5"}}, "5"},
        {"purchase type for origin C",
         {},
         "C",
         {{"Preco Agrupamento", "5"}, {"TIPO PRECO COMPRA", "2"}},
         "2"},
        {"blank purchase type falls to the groupings'", {}, "C", {{"Preco Agrupamento", "5"}}, "5"},
        {"nothing set: PRECO VENDA", {}, "V", {{"PRECO VENDA", "2"}}, "2"},
        {"nothing at all: PRECO VENDA's default", {}, "V", {}, "1"},
        // A lower-case origin is no document, and its data is not read.
        {"lower-case c still counts as a purchase", {}, "c", {{"TIPO PRECO COMPRA", "3"}}, "3"},
    };
    for (const Caso& k : casos) {
        SCOPED_TRACE(k.nome);
        db->Direto("DELETE FROM TBREGSRV WHERE usuario = 'TESTE'");
        for (auto& [chave, valor] : k.ajustes)
            Ajuste(chave, valor);
        Chamada c;
        c.tipo = k.tipoDado;
        c.origem = k.origem;
        if (c.origem != "V") c.dados = c.origem == "C" ? Valor(Valor::Lista{3, 4501}) : Valor();
        c.Faz(*componente);
        EXPECT_EQ(SessaoAtual().TipoPreco, k.esperado);
        EXPECT_EQ(SessaoAtual().OrigemDocumento, c.origem != "c");
        EXPECT_EQ(SessaoAtual().OrigemTrim, c.origem);
    }
    EXPECT_TRUE(Mostradas().empty());
    EXPECT_EQ(SessaoAtual().CodFor, 4501) << "origin C reads the supplier";
}

TEST_P(ZProcessaTeste, EmpresaOrigemCustoPrecoEmpresaOrigemEEmpresaQueNaoExiste) {
    Chamada c;
    c.empresa = 2;
    c.Faz(*componente);
    const Sessao& s = SessaoAtual();
    EXPECT_EQ(std::tie(s.EmpresaOrigem, s.EmpresaConsulta, s.EmpresaPreco), std::make_tuple(2, 2, 2));
    EXPECT_EQ(Apara(A_MTBPAR().UF), "MG");
    Ajuste("Empresa Origem", "1");
    Ajuste("CUSTOPRECO EMPRESA ORIGEM", " nao ");
    c.Faz(*componente);
    // NAO: costs and prices of the session's own company.
    EXPECT_EQ(std::tie(s.EmpresaOrigem, s.EmpresaConsulta, s.EmpresaPreco), std::make_tuple(1, 1, 2));
    ASSERT_NE(A_MTBPAR().PerPis, 0.0) << "the demo company has PIS";
    c.empresa = 99; // a company that does not exist: not shown, percentages zeroed
    c.Faz(*componente);
    EXPECT_EQ(std::make_tuple(A_MTBPAR().PerPis, A_MTBPAR().PerCusFixo), std::make_tuple(0.0, 0.0));
    EXPECT_TRUE(Mostradas().empty());
    EXPECT_EQ(c.statusret, 1);
}

TEST_P(ZProcessaTeste, OrigemFDevolveDadosRetornoMesmoSemTela) {
    Chamada c;
    c.origem = "F";
    c.dados = Valor("lixo do host");
    c.Faz(*componente);
    EXPECT_TRUE(c.dados.vazio()) << "nothing yet on this thread";
    EXPECT_FALSE(SessaoAtual().OrigemDocumento);
    SessaoAtual().DadosRetorno = std::string("A|1|2,50»");
    c.Faz(*componente);
    EXPECT_EQ(c.dados, Valor("A|1|2,50»"));
}

TEST_P(ZProcessaTeste, DadosVendasMalFormadoAvisaNoEstiloDoSistemaELimpaOContexto) {
    Chamada boa;
    boa.Faz(*componente);
    ASSERT_EQ(SessaoAtual().NatOper, 12);
    for (Valor ruim : {Valor(), Valor("texto"), Valor(Valor::Lista{1, "1", 0}), Valor(Valor::Lista{"x"}),
                       Valor(Valor::Lista{70000, "1", 0, "", "", "", ""})}) {
        db->mensagens->Limpa();
        Chamada c;
        c.dados = ruim;
        c.Faz(*componente);
        EXPECT_EQ(std::tie(c.statusret, c.zstatus, c.mens), std::make_tuple(1, 0, ""));
        ASSERT_EQ(Mostradas().size(), 1u);
        const MensagemMostrada& m = Mostradas()[0];
        EXPECT_EQ(std::tie(m.Texto, m.Titulo, m.Tipo),
                  std::make_tuple("Atenção! erro não previsto na função - ZProcessa", "Aviso", 16));
        // No half-filled host context survives.
        EXPECT_EQ(std::tie(SessaoAtual().NatOper, SessaoAtual().DadosVenda3), std::make_tuple(0, ""));
    }
}

class TelasDeTeste : public TelasComponente {
  public:
    void MostraConsulta() override {
        SessaoAtual().DadosRetorno = std::string("123");
        SessaoAtual().StatusRet = 0;
        ++consultas;
    }
    void MostraPrecos() override { SessaoAtual().DadosRetorno = std::string("PRECOS"); }
    static inline int consultas = 0;
};

TEST_P(ZProcessaTeste, OpcaoUmDaOrigemPDevolveOCodigoEscolhido) {
    TelasDeTeste::consultas = 0;
    DefineFabricaTelas([] { return std::make_unique<TelasDeTeste>(); });
    Chamada c;
    c.origem = "P";
    c.opcao = 1;
    c.Faz(*componente);
    EXPECT_EQ(c.codigo, 123);
    EXPECT_EQ(c.statusret, 0);
    c.origem = "F";
    c.Faz(*componente);
    EXPECT_EQ(c.dados, Valor("PRECOS"));
    EXPECT_EQ(TelasDeTeste::consultas, 1);
}

TEST_P(ZProcessaTeste, SemTelasInstaladasAvisaQueATelaNaoEstaDisponivel) {
    Chamada c;
    c.opcao = 1;
    c.Faz(*componente);
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_NE(Mostradas()[0].Texto.find("TolvanF01"), std::string::npos);
    EXPECT_EQ(c.statusret, 1);
}

TEST_P(ZProcessaTeste, DuasThreadsComEmpresasDiferentesVeemCadaUmaASuaSessao) {
    std::string visto[2]; // status of the connection, company, state
    auto trabalho = [&](int i) {
        PortasAtuais().mensagens = std::make_shared<MensagensGravadas>();
        consultalista proprio;
        visto[i] = ComunicaAtual().Status;
        for (int volta = 0; volta < 20; ++volta) {
            Chamada c;
            c.empresa = static_cast<int16_t>(i + 1);
            c.Faz(proprio);
        }
        visto[i] += "/" + std::to_string(SessaoAtual().Empresa) + "/" + Apara(A_MTBPAR().UF);
    };
    std::thread a(trabalho, 0), b(trabalho, 1);
    a.join();
    b.join();
    EXPECT_EQ(visto[0], "00/1/SP");
    EXPECT_EQ(visto[1], "00/2/MG");
}

// Unless the host brought its own component, the rights table decides; with
// no dialog in a program without screens nobody authorises.
TEST_P(ZProcessaTeste, ATabelaDeDireitosDecideQuandoOHostNaoTrouxeComponente) {
    for (auto [operador, esperado] :
         {std::pair{"SUPERVISOR", seguranca::Autorizado}, {"DEMO", seguranca::Recusado}}) {
        std::string op = operador, autorizador;
        int16_t resultado = -1;
        GLO_ChecaSeguranca(1, "PJVELPEV", "DISPON", op, autorizador, resultado, "", int16_t{1}, false, "",
                           "");
        EXPECT_EQ(resultado, esperado) << operador;
    }
}

ZTOLVAN_NOS_DOIS_BANCOS(ZProcessaTeste);

} // namespace
