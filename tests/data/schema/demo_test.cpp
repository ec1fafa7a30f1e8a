// The demo data on both databases: the shapes it promises and refusing a
// second seeding. The screens' and generation's tests read it through the
// modules.
#include <gtest/gtest.h>

#include "common/datas.h"
#include "common/texto.h"
#include "data/modules/modulos_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class DadosDemo : public ComDemo {
  protected:
    void SetUp() override {
        ComDemo::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        ASSERT_EQ(c().Status, "00");
        gravador->chamadas.clear();
    }
    double Conta(const std::string& resto) { return CDbl(Um("SELECT COUNT(*) FROM " + resto)); }
    std::string Texto(const std::string& sql) { return Apara(CStr(Um(sql))); }
};

TEST_P(DadosDemo, DuasEmpresasEmEstadosDiferentesCadaUmaComSeusDadosEDocumentosAbertos) {
    EXPECT_EQ(Texto("SELECT UF FROM TBPAR WHERE Empresa = 1"), "SP");
    EXPECT_EQ(Texto("SELECT UF FROM TBPAR WHERE Empresa = 2"), "MG");
    for (const char* emp : {"1", "2"}) {
        SCOPED_TRACE(emp);
        const std::string e = std::string(" AND Empresa = ") + emp;
        const double produtos = Conta("TBMAT WHERE 1 = 1" + e);
        EXPECT_TRUE(produtos >= 55 && produtos <= 70) << produtos;
        EXPECT_EQ(Conta("TBCUS WHERE 1 = 1" + e), produtos) << "every product has its supplier's cost";
        EXPECT_EQ(Conta("TBMATEQ WHERE Tipo = 1" + e), produtos);
        // Stock at zero, open documents of each kind, commissions, state rates.
        for (const char* alguma :
             {"TBMAT WHERE QtdItAtu = 0", "TBPEV WHERE Status = '0'", "TBPEC WHERE Status = '0'",
              "TBDOC WHERE Status = '0'", "TBVEN WHERE PERCOMIS > 0", "TBREP WHERE PERCOMIS > 0",
              "TBICMUF WHERE 1 = 1"})
            EXPECT_GT(Conta(alguma + e), 0) << alguma;
    }
    const std::string hoje = "'" + HojeAAAAMMDD() + "'";
    const std::string daEmpresa1[] = {
        "TBMAT WHERE QtdItAtu > 0 AND QtdItBloq >= QtdItAtu",
        "TBMAT WHERE Dispon = '1'",
        "TBFOR WHERE FLAGIPI = 1",
        "TBFOR WHERE FLAGIPI = 2",
        "TBMATEQ WHERE Tipo = 1 AND DtIProm <= " + hoje + " AND DtFProm >= " + hoje, // on promotion today
        "TBMATEQ WHERE Tipo = 1 AND DtFProm < " + hoje + " AND DtFProm <> ''",       // a promotion over
    };
    for (const auto& alguma : daEmpresa1)
        EXPECT_GT(Conta(alguma + " AND Empresa = 1"), 0) << alguma;
    for (const char* par :
         {"'1' AND FLGCMED = '0'", "'2' AND FLGCMED = '0'", "'1' AND FLGCMED = '1'", "'2' AND FLGCMED = '1'"})
        EXPECT_EQ(Conta(std::string("TBPNF WHERE EMPRESA = 2 AND FLGES = ") + par), 1) << par;
    EXPECT_EQ(Conta("TBMATTP"), 3);
    EXPECT_EQ(Conta("(SELECT DISTINCT Codigo FROM TBMATAG WHERE Empresa = 1) X"), 12);
    EXPECT_EQ(Conta("(SELECT DISTINCT Codigo FROM TBMATAG WHERE Empresa = 2) X"), 5);
    EXPECT_EQ(Texto("SELECT valor FROM TBREGSRV WHERE usuario = 'DEMO' AND chave = 'PRECO VENDA'"), "1");
    EXPECT_EQ(Texto("SELECT valor FROM TBREGSRV WHERE usuario = 'DEMO' AND chave = 'DESCONTO CASCATA'"),
              "SIM");
}

TEST_P(DadosDemo, UmAgrupamentoInativoUmItemSemProdutoEUmSemPrecoDeAtacado) {
    EXPECT_EQ(Texto("SELECT DISTINCT Codigo FROM TBMATAG WHERE Empresa = 1 AND STTR <> 0"), "000112");
    const std::string semProduto =
        "TBMATAG T1 LEFT JOIN TBMAT T2 ON (T1.Empresa = T2.Empresa AND T1.CodItem = "
        "T2.CodItem) WHERE T2.CodItem IS NULL";
    EXPECT_EQ(Texto("SELECT T1.Codigo FROM " + semProduto), "000102");
    EXPECT_EQ(Conta(semProduto), 1);
    const std::string semTipo2 = "TBMATAG T1 WHERE T1.Empresa = 1 AND T1.Codigo <> '000102' AND NOT EXISTS "
                                 "(SELECT 1 FROM TBMATEQ T3 WHERE T3.Empresa = T1.Empresa AND T3.CodEquiv = "
                                 "T1.CodEquiv AND T3.Tipo = 2)";
    EXPECT_EQ(Texto("SELECT T1.Codigo FROM " + semTipo2), "000104");
    EXPECT_EQ(Conta(semTipo2), 1);
}

TEST_P(DadosDemo, SemearDeNovoERecusadoComStatus22) {
    const double antes = Conta("TBMAT");
    std::string msg;
    EXPECT_FALSE(SemeiaDemo(msg));
    EXPECT_EQ(c().Status, "22");
    EXPECT_NE(msg.find("já tem"), std::string::npos) << msg;
    EXPECT_EQ(Conta("TBMAT"), antes);
}

ZTOLVAN_NOS_DOIS_BANCOS(DadosDemo);

} // namespace
