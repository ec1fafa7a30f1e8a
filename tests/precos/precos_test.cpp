#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

#include "apoio/banco_teste.h"
#include "apoio/registro_teste.h"
#include "common/contexto.h"
#include "common/erro.h"
#include "common/explicacao.h"
#include "common/portas.h"
#include "common/relogio_teste.h"
#include "data/comunica.h"
#include "data/modules/modulos.h"
#include "data/schema/esquema.h"
#include "entry/sessao.h"
#include "precos/precos.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Aritmetica : public ::testing::Test {
  protected:
    void SetUp() override {
        Contexto::Renova();
        mensagens = std::make_shared<MensagensGravadas>();
        PortasAtuais().mensagens = mensagens;
    }
    void TearDown() override {
        DefineRelogio({});
        Contexto::Renova();
    }
    std::shared_ptr<MensagensGravadas> mensagens;
};

TEST_F(Aritmetica, PrecoDoDiaSegueOPeriodoDaPromocaoEArredondaADuasCasas) {
    struct Caso {
        const char* nome;
        double valor, prom;
        const char *inicio, *fim, *hoje;
        double esperado;
    } casos[] = {
        {"open-ended promotion from its first day", 15.9, 12.5, "20240101", "        ", "20240101", 12.5},
        {"the day before it starts", 15.9, 12.5, "20240101", "        ", "20231231", 15.9},
        {"its last day", 15.9, 12.5, "20240101", "20240131", "20240131", 12.5},
        {"the day after", 15.9, 12.5, "20240101", "20240131", "20240201", 15.9},
        {"no promotion price", 15.9, 0, "20240101", "20240131", "20240115", 15.9},
        {"halves away from zero on the decimal form", 2.675, 0, "", "", "20240101", 2.68},
        {"1.005 as written", 1.005, 0, "", "", "20240101", 1.01},
        {"negative halves", -2.675, 0, "", "", "20240101", -2.68},
        {"a promotion price rounds too", 9.9, 3.14159, "20240101", "", "20240101", 3.14},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nome);
        EXPECT_DOUBLE_EQ(PrecoDoDia(c.valor, c.prom, c.inicio, c.fim, c.hoje), c.esperado);
    }
}

TEST_F(Aritmetica, PrecoPromocionalLeOEquivalenteDoDiaERelataEstouroComZero) {
    ParaORelogio(2024, 1, 31);
    A_MTBMATEQ_t& e = A_MTBMATEQ();
    e.Valor = 20;
    e.PrcProm = 17.555;
    e.DtIProm = "20240101";
    e.DtFProm = "20240131";
    EXPECT_DOUBLE_EQ(PrecoPromocional(), 17.56);
    ParaORelogio(2024, 2, 1);
    EXPECT_DOUBLE_EQ(PrecoPromocional(), 20);
    EXPECT_TRUE(mensagens->Mostradas().empty());

    e.Valor = std::numeric_limits<double>::infinity();
    EXPECT_DOUBLE_EQ(PrecoPromocional("TolvanF07"), 0);
    ASSERT_EQ(mensagens->Mostradas().size(), 1u);
    EXPECT_EQ(mensagens->Mostradas()[0].Texto, "Atenção! erro não previsto na função - PrecoPromocional");
    EXPECT_EQ(mensagens->Mostradas()[0].Tipo, 16);
    EXPECT_EQ(mensagens->Mostradas()[0].Titulo, "Aviso");
}

TEST_F(Aritmetica, MargemLiquidaDescontaCustoEEncargosPositivos) {
    // u = 10; charges 1.8 + 0.3 + 0.065 + 1.2 + 0 + 0.12 + 0.108 = 3.593.
    EXPECT_NEAR(CalculaMargemLiquida(10, 1, 18, 5, 3, 0.65, 12, 0, 1.2, 1.08), 1.407, 1e-12);
    EXPECT_NEAR(SomaEncargos(10, 1, 18, 3, 0.65, 12, 0, 1.2, 1.08), 3.593, 1e-12);
    // A percentage of -3 adds nothing: 3.593 - 0.3.
    EXPECT_NEAR(CalculaMargemLiquida(10, 1, 18, 5, -3, 0.65, 12, 0, 1.2, 1.08), 1.707, 1e-12);
    // The unit is the price over the unit quantity: u = 5, charges 0.9.
    EXPECT_NEAR(CalculaMargemLiquida(10, 2, 18, 1, 0, 0, 0, 0, 0, 0), 3.1, 1e-12);
    // Below zero is stored as 0.
    EXPECT_EQ(CalculaMargemLiquida(10, 1, 18, 9, 3, 0.65, 12, 0, 1.2, 1.08), 0);
    EXPECT_EQ(CalculaMargemLiquida(-10, 1, 0, 0, 0, 0, 0, 0, 0, 0), 0);
    try {
        CalculaMargemLiquida(1e300, 1e-300, 0, 0, 0, 0, 0, 0, 0, 0);
        ADD_FAILURE() << "overflow not raised";
    } catch (const ErroExecucao& e) {
        EXPECT_EQ(e.Numero(), 6);
    }
}

TEST_F(Aritmetica, CustoLiquidoEAliquotaDeSubstituicaoDaCompra) {
    A_MTBCUS_t c;
    c.PrecoTab = 100;
    c.Desc1 = 10;
    c.Desc2 = 5;
    EXPECT_DOUBLE_EQ(CustoLiquido(c), 85.5);
    // A zero discount is skipped, a negative one adds.
    c.Desc1 = c.Desc2 = 0;
    c.Desc3 = 50;
    c.Desc8 = -10;
    EXPECT_DOUBLE_EQ(CustoLiquido(c), 55);

    EXPECT_DOUBLE_EQ(AliquotaSubstituicao(0, 18), 1700);   // a = 0 counts as 1
    EXPECT_DOUBLE_EQ(AliquotaSubstituicao(12, 18), 150);   // 3000 / 12 / 100 = 2.5
    EXPECT_DOUBLE_EQ(AliquotaSubstituicao(7, 18), 257.14); // y = 3.5714 (four decimals)
    EXPECT_DOUBLE_EQ(AliquotaSubstituicao(18, 0), 0);
    // y = 1600.08 / 16 / 100 = 1.00005: the tie goes to the even 1.0000.
    EXPECT_DOUBLE_EQ(AliquotaSubstituicao(16, 0.0008), 0);
    EXPECT_DOUBLE_EQ(AliquotaSubstituicao(16, 0.0024), 0.02); // 1.00015 -> 1.0002
    // One-decimal rates: y = 1610 / 11.1 / 100 = 1.450450.. is one value,
    // 1.4505; made in two steps (145.0450, then a tie to even) it was 1.4504.
    EXPECT_DOUBLE_EQ(AliquotaSubstituicao(11.1, 5), 45.05);
    EXPECT_DOUBLE_EQ(AliquotaSubstituicao(7.3, 4.5), 61.64); // 1180 / 7.3 / 100 = 1.616438..
}

// PrecoTab 100 less 10% = 90; freight 5% = 4.5; packing 2% = 1.8; m = 1.4;
// ValRec 90, QtdRec 3.
A_MTBPECIT_t ItemCompra() {
    return Registro<A_MTBPECIT_t>({{"PrecoTab", 100}, {"Desc1", 10}, {"Frete", 5}, {"Emb", 2}, {"PercIPI", 10},
                                   {"SitTrib", "3"}, {"PercICMSS", 40}, {"ValUnit", 90}, {"ValRec", 90},
                                   {"QtdRec", 3}});
}

TEST_F(Aritmetica, BaseDeSubstituicaoPorRegraDoFornecedor) {
    struct Caso {
        const char* nome;
        int16_t flagIpi;
        double frete, ipi;
        double esperado;
    } casos[] = {
        // ipi = (90 + 4.5 + 1.8) x 10% = 9.63; 1.4 x (90 + 4.5 + 9.63) x 3.
        {"supplier 2 with IPI", 2, 5, 10, 437.346},
        // ipi = (90 + 1.8) x 10% = 9.18; 1.4 x (90 + 4.5 + 9.18) x 3.
        {"freight and IPI", 1, 5, 10, 435.456},
        {"IPI only", 1, 0, 10, 416.556},  // 1.4 x (90 + 9.18) x 3
        {"freight only", 1, 5, 0, 396.9}, // 1.4 x 94.5 x 3
        {"neither", 1, 0, 0, 378},        // 1.4 x 90 x 3
        {"supplier 2 without IPI", 2, 5, 0, 396.9},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nome);
        A_MTBPECIT_t it = ItemCompra();
        it.Frete = c.frete;
        it.PercIPI = c.ipi;
        EXPECT_NEAR(BaseIcmsSub(it, c.ipi, c.flagIpi), c.esperado, 1e-9);
    }
    A_MTBPECIT_t it = ItemCompra();
    it.SitTrib = "1";
    EXPECT_EQ(BaseIcmsSub(it, 10, 1), 0) << "only substitution items have a base";

    // The cost record's IPI replaces the item's; without a cost record it stays.
    it = ItemCompra();
    EXPECT_NEAR(BaseIcmsSub(it, 0, 1), 396.9, 1e-9);
    EXPECT_EQ(it.PercIPI, 0);
    it = ItemCompra();
    EXPECT_NEAR(BaseIcmsSub(it, std::nullopt, 1), 435.456, 1e-9);
    EXPECT_EQ(it.PercIPI, 10);
}

TEST_F(Aritmetica, BaseDeSubstituicaoArredondaOndeOSistemaArredonda) {
    // Every item of substitution ("3"); the fields each case sets.
    struct Caso {
        const char* nome;
        double precoTab, valUnit, desc1, frete, emb, percIPI, percICMSS, valRec, qtdRec;
        double esperado;
    } casos[] = {
        // 1.0001 x 50 = 50.005 -> / 100 = 0.50005 -> 0.5000 (tie to even);
        // freight 100% of it: 1 x (0 + 0.5) x 1.
        {"a discount step in fixed point", 1.0001, 0, 50, 100, 0, 0, 0, 0, 1, 0.5},
        // 0.05 x 0.5 / 100 = 0.00025 -> 0.0003 (halves away from zero).
        {"a rounded step", 0.05, 0, 0, 0.5, 0, 0, 0, 1, 1, 1.0003},
        {"the cost from ValUnit without PrecoTab: 50 x 10% = 5", 0, 50, 0, 10, 0, 0, 0, 50, 2, 110},
        // freight = 10000 x 1.23456 / 100 = 123.456, not 123.46 from a rate
        // cut to 1.2346; m = 2.5.
        {"a rate with five decimals takes part whole", 10000, 0, 0, 1.23456, 0, 0, 150, 10000, 1, 25308.64},
        // 10000 x (100 - 12.34567) / 100 = 8765.433; ipi = (8765.433 +
        // 876.5433) x 10% = 964.19763 -> 964.1976.
        {"a discount with five decimals, packing and IPI", 10000, 0, 12.34567, 0, 10, 10, 150, 10000, 1,
         2.5 * (10000 + 964.1976)},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nome);
        A_MTBPECIT_t it = Registro<A_MTBPECIT_t>(
            {{"SitTrib", "3"}, {"PrecoTab", c.precoTab}, {"ValUnit", c.valUnit}, {"Desc1", c.desc1},
             {"Frete", c.frete}, {"Emb", c.emb}, {"PercIPI", c.percIPI}, {"PercICMSS", c.percICMSS},
             {"ValRec", c.valRec}, {"QtdRec", c.qtdRec}});
        EXPECT_NEAR(BaseIcmsSub(it, std::nullopt, 1), c.esperado, 1e-9);
    }
}

// Classification against real rate tables.
class Classificacao : public ::testing::Test {
  protected:
    void SetUp() override {
        db = std::make_unique<BancoTeste>(Kind::Sqlite);
        ASSERT_TRUE(db->Pronto()) << db->Motivo();
        ASSERT_TRUE(db->Conecta());
        std::string msg;
        ASSERT_TRUE(CriaEsquema(msg)) << msg;
        // Code 1: ordinary 18.00005, final consumer 12.34565 (RJ: 12);
        // code 2: 7 / 7; code 4 (substitution): 17.77777 / 20.55555 (RJ 19.99999).
        db->Direto("INSERT INTO TBICM (EMPRESA, CODIGO, PERCICMS, OBS, PERCICMSF) VALUES "
                   "(1, 1, 18.00005, '', 12.34565), (1, 2, 7, '', 7), (1, 4, 17.77777, '', 20.55555);"
                   "INSERT INTO TBICMUF (EMPRESA, CODIGO, UF, PERCICMSF) VALUES "
                   "(1, 1, 'RJ', 12), (1, 4, 'RJ', 19.99999)");
        Sessao& s = SessaoAtual();
        s.Empresa = 1;
        s.CobraICMSSubstituto = "SIM";
    }
    void TearDown() override { db.reset(); }

    static DadosTributos Dados(const char* sitTrib, int16_t op, const char* d1, bool cobra = false) {
        DadosTributos d;
        d.SitTrib = sitTrib;
        d.NatOper = op;
        d.Dado1 = d1;
        d.CobraSubstituicao = cobra;
        d.Dado3 = "SP";
        d.Dado4 = "RJ";
        d.Dado5 = "SP";
        d.Dado6 = "RJ";
        d.PercIsen = 1;
        d.CodICMSS = 4;
        return d;
    }

    std::unique_ptr<BancoTeste> db;
};

// Each route, with the explanation the classification notes as it decides:
// the route, whether substitution was charged here, and the row behind
// each rate ("" where no rate was looked up).
TEST_F(Classificacao, CadaRotaDoICMSEASuaExplicacao) {
    struct Caso {
        const char* nome;
        DadosTributos d;
        const char* sitTrib;
        double icms, icmss;
        const char *rota, *aliquotaICMS, *aliquotaST;
        bool cobrada;
    } casos[] = {
        {"final consumer with the state's own rate", Dados("1", 5102, "1"), "1", 12, 0, "situação do produto",
         "TBICMUF 1/1/RJ PERCICMSF", "", false},
        {"ordinary rate rounded to four decimals", Dados("1", 5102, "2"), "1", 18.0001, 0, "situação do produto",
         "TBICM 1/1 PERCICMS", "", false},
        {"substitution charged: the state's rate, unrounded", Dados("1", 5102, "1", true), "3", 12, 19.99999,
         "situação do produto", "TBICMUF 1/1/RJ PERCICMSF", "TBICMUF 1/4/RJ PERCICMSF", true},
        {"substitution, ordinary kind", Dados("1", 5102, "2", true), "3", 18.0001, 17.77777,
         "situação do produto", "TBICM 1/1 PERCICMS", "TBICM 1/4 PERCICMS", true},
        {"substitution with datum 1 \"0\" clears both", Dados("1", 5102, "0", true), "3", 0, 0,
         "situação do produto", "zerada: dado 1 é 0", "", true},
        {"product already in substitution", Dados("3", 5102, "2"), "3", 18.0001, 17.77777, "situação do produto",
         "TBICM 1/1 PERCICMS", "TBICM 1/4 PERCICMS", false},
        {"operation without ICMS", Dados("1", 5901, "1", true), "0", 0, 0, "operação sem ICMS", "", "", false},
        {"operation without ICMS, product 4", Dados("4", 592, "1"), "4", 18.00005, 0, "produto 4",
         "TBICM 1/1 PERCICMS", "", false},
        {"product 4: ordinary rate, unrounded", Dados("4", 5102, "1"), "4", 18.00005, 0, "produto 4",
         "TBICM 1/1 PERCICMS", "", false},
        {"other situations carry no rate", Dados("2", 5102, "1"), "2", 0, 0, "situação do produto", "", "", false},
        {"a code not in the table", [] {
             DadosTributos d = Dados("1", 5102, "2");
             d.PercIsen = 9;
             return d;
         }(),
         "1", 0, 0, "situação do produto", "código 1/9 não encontrado: 0", "", false},
        {"special route: same state, not PB", [] {
             DadosTributos d = Dados("1", 5152, "1");
             d.Dado3 = d.Dado4 = d.Dado5 = d.Dado6 = "PE";
             return d;
         }(),
         "0", 0, 0, "rota especial", "", "", false},
    };
    explicacao::Liga(true);
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.nome);
        explicacao::Comeca();
        Tributos t = ClassificaICMS(c.d);
        EXPECT_EQ(t.SitTrib, c.sitTrib);
        EXPECT_DOUBLE_EQ(t.PercICMS, c.icms);
        EXPECT_DOUBLE_EQ(t.PercICMSS, c.icmss);
        std::map<std::string, Valor> notas;
        for (auto& [k, v] : explicacao::Toma())
            notas[k] = v;
        EXPECT_EQ(notas["rota"], Valor(c.rota));
        EXPECT_EQ(notas["sitTribBase"], Valor(c.d.SitTrib));
        EXPECT_EQ(notas["substituicaoCobrada"], Valor(c.cobrada));
        EXPECT_EQ(notas.count("aliquotaICMS") ? notas["aliquotaICMS"] : Valor(""), Valor(c.aliquotaICMS));
        EXPECT_EQ(notas.count("aliquotaST") ? notas["aliquotaST"] : Valor(""), Valor(c.aliquotaST));
    }
    explicacao::Liga(false);
    explicacao::Comeca();
    ClassificaICMS(casos[0].d);
    EXPECT_TRUE(explicacao::Toma().empty()) << "off: nothing noted";
}

TEST_F(Classificacao, RotaEspecialConfiguracaoDaSubstituicaoEAliquotaDaCompra) {
    // Purchase substitution from the ordinary rates: code 9 has none (a = 0 -> 1), code 2 is 7.
    EXPECT_DOUBLE_EQ(PercSubstituicaoCompra(9, 2), 600);
    DadosTributos d = Dados("1", 5152, "1");
    d.Dado3 = d.Dado4 = "pe ";
    d.Dado5 = d.Dado6 = "PE";
    EXPECT_EQ(ClassificaICMS(d).SitTrib, "0") << "same state, not PB";
    d.Dado3 = d.Dado4 = "PB";
    Tributos t = ClassificaICMS(d);
    EXPECT_EQ(t.SitTrib, "1") << "PB takes the product's situation";
    EXPECT_DOUBLE_EQ(t.PercICMS, 12.3457) << "PB has no state rate: the general one, rounded";
    d.Dado6 = "SP";
    d.Dado3 = d.Dado4 = "PE";
    EXPECT_EQ(ClassificaICMS(d).SitTrib, "1") << "data 5 and 6 differ";

    SessaoAtual().CobraICMSSubstituto = " nao";
    EXPECT_EQ(ClassificaICMS(Dados("1", 5102, "1", true)).SitTrib, "1");
    SessaoAtual().CobraICMSSubstituto = " sim ";
    EXPECT_EQ(ClassificaICMS(Dados("1", 5102, "1", true)).SitTrib, "3");

    // The tax code is the exemption value rounded to even: 2.5 reads code 2.
    d = Dados("1", 5102, "2");
    d.PercIsen = 2.5;
    EXPECT_DOUBLE_EQ(ClassificaICMS(d).PercICMS, 7);
    d.PercIsen = 1.5;
    EXPECT_DOUBLE_EQ(ClassificaICMS(d).PercICMS, 7);
    d.PercIsen = 0.5;
    EXPECT_DOUBLE_EQ(ClassificaICMS(d).PercICMS, 0) << "code 0 has no rate";
}

TEST_F(Classificacao, VendaEDocumentoLeemOFlagDeSubstituicaoCadaUmASeuModo) {
    Sessao& s = SessaoAtual();
    s.NatOper = 5102;
    s.DadosVenda1 = "1";
    s.DadosVenda3 = "SP";
    s.DadosVenda4 = "RJ";
    s.DadosVenda5 = "SP";
    s.DadosVenda6 = "RJ";
    A_MTBMATEQ_t& e = A_MTBMATEQ();
    e.SitTrib = "1";
    e.PercIsen = 1;
    e.CodICMSS = 4;
    for (int16_t d2 : {0, -1, 1}) {
        SCOPED_TRACE(d2);
        s.DadosVenda2 = d2;
        SetaCamposVenda();
        EXPECT_EQ(A_MTBPEVIT().SitTrib, d2 == -1 ? "3" : "1") << "sales orders: -1 only";
        ASSERT_TRUE(Calcula_Tributos("1", d2 != 0, "SP", "RJ", "x", "y", "1", 1, 4, 5102));
        EXPECT_EQ(A_MTBDOCIT().SitTrib, d2 != 0 ? "3" : "1") << "store documents: any non-zero";
        EXPECT_DOUBLE_EQ(A_MTBDOCIT().PercICMS, 12);
    }
    EXPECT_TRUE(db->mensagens->Mostradas().empty());
}

} // namespace
