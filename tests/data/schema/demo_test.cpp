// The demo data on both databases: the shapes it promises, refusing a second
// seeding, the modules and the item-grid statement running over it.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <set>

#include "common/texto.h"
#include "data/banco_dados.h"
#include "data/modules/modulos_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

std::string Hoje() {
    std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    char b[16];
    std::strftime(b, sizeof b, "%Y%m%d", &tm);
    return b;
}

class DadosDemo : public ComEsquema {
protected:
    void SetUp() override {
        ComEsquema::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        std::string msg;
        ASSERT_TRUE(SemeiaDemo(msg)) << msg;
        ASSERT_EQ(c().Status, "00");
        gravador->chamadas.clear();
    }
    double Conta(const std::string& resto) { return CDbl(Um("SELECT COUNT(*) " + resto)); }
};

TEST_P(DadosDemo, DuasEmpresasEmEstadosDiferentesComProdutosTiposEAgrupamentos) {
    EXPECT_EQ(Apara(CStr(Um("SELECT UF FROM TBPAR WHERE Empresa = 1"))), "SP");
    EXPECT_EQ(Apara(CStr(Um("SELECT UF FROM TBPAR WHERE Empresa = 2"))), "MG");
    EXPECT_GT(CDbl(Um("SELECT PerPis FROM TBPAR WHERE Empresa = 1")), 0);
    for (int emp : {1, 2}) {
        const std::string e = std::to_string(emp);
        const double produtos = Conta("FROM TBMAT WHERE Empresa = " + e);
        EXPECT_GE(produtos, 55);
        EXPECT_LE(produtos, 70);
        EXPECT_EQ(Conta("FROM TBCUS WHERE Empresa = " + e), produtos) << "every product has its supplier's cost";
        EXPECT_EQ(Conta("FROM TBMATEQ WHERE Tipo = 1 AND Empresa = " + e), produtos);
        EXPECT_GT(Conta("FROM TBMAT WHERE QtdItAtu = 0 AND Empresa = " + e), 0) << "stock at zero";
        EXPECT_GT(Conta("FROM TBPEV WHERE Empresa = " + e), 0);
        EXPECT_GT(Conta("FROM TBPEC WHERE Empresa = " + e), 0);
        EXPECT_GT(Conta("FROM TBDOC WHERE Empresa = " + e), 0);
        EXPECT_GT(Conta("FROM TBVEN WHERE PERCOMIS > 0 AND EMPRESA = " + e), 0);
        EXPECT_GT(Conta("FROM TBREP WHERE PERCOMIS > 0 AND EMPRESA = " + e), 0);
        EXPECT_GT(Conta("FROM TBICMUF WHERE EMPRESA = " + e), 0);
    }
    EXPECT_GT(Conta("FROM TBMAT WHERE QtdItAtu > 0 AND QtdItBloq >= QtdItAtu AND Empresa = 1"), 0) << "all blocked";
    EXPECT_GT(Conta("FROM TBMAT WHERE Dispon = '1' AND Empresa = 1"), 0);
    EXPECT_EQ(Conta("FROM TBMATTP"), 3);
    EXPECT_EQ(Conta("FROM (SELECT DISTINCT Codigo FROM TBMATAG WHERE Empresa = 1) X"), 12);
    EXPECT_EQ(Conta("FROM (SELECT DISTINCT Codigo FROM TBMATAG WHERE Empresa = 2) X"), 5);
    EXPECT_GT(Conta("FROM TBFOR WHERE FLAGIPI = 1"), 0);
    EXPECT_GT(Conta("FROM TBFOR WHERE FLAGIPI = 2"), 0);
    EXPECT_EQ(Apara(CStr(Um("SELECT valor FROM TBREGSRV WHERE usuario = 'DEMO' AND chave = 'PRECO VENDA'"))), "1");
    EXPECT_EQ(Apara(CStr(Um("SELECT valor FROM TBREGSRV WHERE usuario = 'DEMO' AND chave = 'DESCONTO CASCATA'"))),
              "SIM");
}

TEST_P(DadosDemo, UmAgrupamentoInativoUmItemSemProdutoEUmSemPrecoDeAtacado) {
    EXPECT_EQ(Apara(CStr(Um("SELECT DISTINCT Codigo FROM TBMATAG WHERE Empresa = 1 AND STTR <> 0"))), "NATAL2023");
    EXPECT_EQ(Apara(CStr(Um("SELECT T1.Codigo FROM TBMATAG T1 LEFT JOIN TBMAT T2 ON (T1.Empresa = T2.Empresa AND "
                            "T1.CodItem = T2.CodItem) WHERE T2.CodItem IS NULL"))),
              "CESTA02");
    EXPECT_EQ(Conta("FROM TBMATAG T1 LEFT JOIN TBMAT T2 ON (T1.Empresa = T2.Empresa AND T1.CodItem = T2.CodItem) "
                    "WHERE T2.CodItem IS NULL"),
              1);
    const std::string semTipo2 = "FROM TBMATAG T1 WHERE T1.Empresa = 1 AND NOT EXISTS (SELECT 1 FROM TBMATEQ T3 WHERE "
                                 "T3.Empresa = T1.Empresa AND T3.CodEquiv = T1.CodEquiv AND T3.Tipo = 2)";
    EXPECT_EQ(Apara(CStr(Um("SELECT T1.Codigo " + semTipo2 + " AND T1.Codigo <> 'CESTA02'"))), "ESCOLAR");
    EXPECT_EQ(Conta(semTipo2 + " AND T1.Codigo <> 'CESTA02'"), 1);
}

TEST_P(DadosDemo, PromocoesEmVoltaDeHojeETiposDeDocumentoParaCadaPar) {
    const std::string hoje = "'" + Hoje() + "'";
    EXPECT_GT(Conta("FROM TBMATEQ WHERE Tipo = 1 AND Empresa = 1 AND DtIProm <= " + hoje + " AND DtFProm >= " + hoje),
              0);
    EXPECT_GT(Conta("FROM TBMATEQ WHERE Tipo = 1 AND Empresa = 1 AND DtFProm < " + hoje + " AND DtFProm <> ''"), 0);
    std::set<std::string> pares;
    clsBancoDados bd;
    auto r = bd.fcExecutaComando(1, "SELECT FLGES, FLGCMED FROM TBPNF WHERE EMPRESA = 2", false);
    ASSERT_EQ(r.situacao, "00") << r.mensagem;
    for (auto& rs = r.rsDadosRetorno; !rs.Eof(); rs.MoveNext())
        pares.insert(Apara(CStr(rs.Fields("FLGES").Value)) + Apara(CStr(rs.Fields("FLGCMED").Value)));
    for (const char* p : {"10", "20", "11", "21"}) EXPECT_TRUE(pares.count(p)) << p;
}

TEST_P(DadosDemo, SemearDeNovoERecusadoComStatus22) {
    const double antes = Conta("FROM TBMAT");
    std::string msg;
    EXPECT_FALSE(SemeiaDemo(msg));
    EXPECT_EQ(c().Status, "22");
    EXPECT_NE(msg.find("já tem"), std::string::npos) << msg;
    EXPECT_EQ(Conta("FROM TBMAT"), antes);
}

TEST_P(DadosDemo, OsModulosLeemOsDadosDeDemonstracao) {
    ChaveMTBPAR().Empresa = 1;
    Chama(A_MTBPAR(), MTBPAR, "FSEL001", "REQUERY");
    ASSERT_EQ(c().Status, "00") << c().Msg;
    EXPECT_EQ(Apara(A_MTBPAR().RazSocial), "Supermercado Bom Preço Ltda");
    ChaveMTBPNF().EMPRESA = 1;
    ChaveMTBPNF().CODIGO = 2;
    Chama(A_MTBPNF(), MTBPNF, "FSEL001", "REQUERY");
    EXPECT_EQ(A_MTBPNF().FLGES.str(), "2");
    ChaveMTBVEN().EMPRESA = 1;
    ChaveMTBVEN().CODVEND = 1;
    Chama(A_MTBVEN(), MTBVEN, "FSEL001", "REQUERY");
    EXPECT_DOUBLE_EQ(A_MTBVEN().PERCOMIS, 2.5);
    ChaveMTBREP().EMPRESA = 1;
    ChaveMTBREP().CODREPCOM = 10;
    Chama(A_MTBREP(), MTBREP, "FSEL017", "REQUERY");
    EXPECT_DOUBLE_EQ(A_MTBREP().PERCOMIS, 4);
    ChaveMTBPEV().Empresa = 2;
    ChaveMTBPEV().NumPed = 1;
    Chama(A_MTBPEV(), MTBPEV, "FSEL001", "REQUERY");
    EXPECT_EQ(A_MTBPEV().UF.str(), "RJ");
    ChaveMTBPEC().Empresa = 2;
    ChaveMTBPEC().NumPed = 1;
    Chama(A_MTBPEC(), MTBPEC, "FSEL001", "REQUERY");
    EXPECT_EQ(A_MTBPEC().CodFor, 101);
    ChaveMTBDOC().Empresa = 1;
    ChaveMTBDOC().Seq = 1;
    Chama(A_MTBDOC(), MTBDOC, "FSEL001", "REQUERY");
    EXPECT_EQ(Apara(A_MTBDOC().NumNF), "000123");
    ChaveMTBFOR().EMPRESA = 1;
    ChaveMTBFOR().CODFORN = 102;
    Chama(A_MTBFOR(), MTBFOR, "FSEL002", "REQUERY");
    EXPECT_EQ(A_MTBFOR().FLAGIPI, 2);
    ChaveMTBCUS().Empresa = 1;
    ChaveMTBCUS().CodMat = "1001";
    ChaveMTBCUS().CodFor = 101;
    Chama(A_MTBCUS(), MTBCUS, "FSEL001", "REQUERY");
    EXPECT_GT(A_MTBCUS().PrecoTab, 0);
    ChaveMTBMATEQ().Empresa = 1;
    ChaveMTBMATEQ().Tipo = 1;
    ChaveMTBMATEQ().CodEquiv = A_MTBMATAG().CodEquiv; // blank: nothing
    Chama(A_MTBMATEQ(), MTBMATEQ, "FSEL001", "REQUERY");
    EXPECT_EQ(c().Status, "23");
    for (auto& ch : gravador->chamadas) EXPECT_NE(ch.Status, "99") << ch.Transacao << " " << ch.Texto;
}

TEST_P(DadosDemo, AgrupamentoEscolarNoAtacadoPulaAMochila) {
    auto itens = [&](int16_t tipo) {
        ChaveMTBMATAG().Empresa = 1;
        ChaveMTBMATAG().Codigo = "ESCOLAR";
        ChaveMTBMATAG().Item = 0;
        ChaveMTBMATAG().Tipo = tipo;
        std::vector<std::string> r;
        for (Chama(A_MTBMATAG(), MTBMATAG, "FSEL010", "OPEN"); c().Status == "00";
             Chama(A_MTBMATAG(), MTBMATAG, "FSEL010", "NEXT"))
            r.push_back(Apara(A_MTBMATEQ().DscItem));
        Chama(A_MTBMATAG(), MTBMATAG, "FSEL010", "CLOSE");
        return r;
    };
    auto varejo = itens(1), atacado = itens(2);
    EXPECT_EQ(varejo.size(), atacado.size() + 1);
    EXPECT_NE(std::find(varejo.begin(), varejo.end(), "Mochila escolar"), varejo.end());
    EXPECT_EQ(std::find(atacado.begin(), atacado.end(), "Mochila escolar"), atacado.end());
}

// The item grid's statement, built as the screen builds it, runs unchanged.
std::string GradeDeItens(const std::string& grupo, const std::string& tipo) {
    return "SELECT DISTINCT ISNULL(T2.DscItem,'PRODUTO NÃO CADASTRADO PARA ESTA EMPRESA') AS DscItem , "
           " ISNULL(T3.DISPON, '0') AS DISPON, "
           " T1.RAZFORNEC , T1.QTD, T1.VALOR, ISNULL(T2.Embal, '') AS Embal, "
           " ISNULL(T2.CodItem, '') AS CodItem, "
           " ISNULL(T3.CODREF , '') AS CODREF, "
           " ISNULL(T3.CODEQUIV, '') AS CODEQUIV, "
           " ISNULL(T1.TIPO, '') AS TIPO"
           " FROM TBMATAG T1"
           " LEFT JOIN TBMAT T2 ON (T1.EMPRESA = T2.EMPRESA AND T1.CODITEM = T2.CODITEM)"
           " LEFT JOIN TBMATEQ T3 ON (T1.EMPRESA = T3.EMPRESA AND T1.CODITEM = T3.CODITEM AND T1.CODEQUIV = "
           "T3.CODEQUIV AND T3.TIPO = " +
           tipo + ")" + " WHERE T1.EMPRESA  = 1" + " AND T1.CODIGO = '" + grupo + "'" + " AND T1.EMPRESA = '1'";
}

TEST_P(DadosDemo, AConsultaDaGradeDeItensRodaComIsNullNosDoisBancos) {
    clsBancoDados bd;
    ASSERT_TRUE(bd.fcAbreBancoDadosVeltra(1));
    auto r = bd.fcExecutaComando(1, GradeDeItens("CESTA02", "1"), false);
    ASSERT_EQ(r.situacao, "00") << r.mensagem;
    int linhas = 0, semProduto = 0;
    for (auto& rs = r.rsDadosRetorno; !rs.Eof(); rs.MoveNext(), ++linhas) {
        EXPECT_EQ(CInt(rs.Fields("Tipo").Value), 1);
        if (Apara(CStr(rs.Fields("DSCITEM").Value)) != "PRODUTO NÃO CADASTRADO PARA ESTA EMPRESA") {
            EXPECT_FALSE(Apara(CStr(rs.Fields("CodEquiv").Value)).empty());
            continue;
        }
        ++semProduto;
        EXPECT_EQ(CInt(rs.Fields("DISPON").Value), 0);
        EXPECT_EQ(Apara(CStr(rs.Fields("Embal").Value)), "");
        EXPECT_EQ(Apara(CStr(rs.Fields("CODEQUIV").Value)), "");
        EXPECT_EQ(Apara(CStr(rs.Fields("CodItem").Value)), "");
        EXPECT_DOUBLE_EQ(CDbl(rs.Fields("VALOR").Value), 17.90);
    }
    EXPECT_EQ(linhas, 7);
    EXPECT_EQ(semProduto, 1);

    auto escolar = bd.fcExecutaComando(1, GradeDeItens("ESCOLAR", "2"), false);
    ASSERT_EQ(escolar.situacao, "00") << escolar.mensagem;
    int semEquivalencia = 0;
    for (auto& rs = escolar.rsDadosRetorno; !rs.Eof(); rs.MoveNext())
        if (Apara(CStr(rs.Fields("CODEQUIV").Value)).empty()) {
            ++semEquivalencia;
            EXPECT_EQ(Apara(CStr(rs.Fields("DscItem").Value)), "Mochila escolar") << "the product is still there";
        }
    EXPECT_EQ(semEquivalencia, 1);
}

ZTOLVAN_NOS_DOIS_BANCOS(DadosDemo);

} // namespace
