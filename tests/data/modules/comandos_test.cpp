// Every handler of the eighteen modules sends its statement exactly as the
// system writes it, and both databases accept it against the schema.
#include <gtest/gtest.h>

#include "common/texto.h"
#include "data/modules/modulos_teste.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

struct Entrada {
    const char* modulo;
    void (*entrada)();
    RegistroModulo& (*registro)();
    const char* funcao;
};

template <class R, R& (*A)()> RegistroModulo& Reg() { return A(); }

#define ZT_ENTRADA(M, F) Entrada{#M, M, Reg<A_##M##_t, A_##M>, F}

// The statements quoted whole, and the ones built from the record, told
// by their start, their column count and their end.
struct Esperado {
    Entrada e;
    std::string inteiro;
    std::string inicio;
    size_t colunas = 0;
    std::string fim;
};

// Columns of a select list, or of an insert's column list.
size_t ContaColunas(const std::string& texto) {
    size_t de = texto.starts_with("SELECT") ? 7 : texto.find('(') + 1;
    size_t ate = texto.starts_with("SELECT") ? texto.find(" FROM ") : texto.find(')');
    if (de == std::string::npos || ate == std::string::npos || ate < de) return 0;
    size_t n = 1;
    for (size_t i = de; i < ate; ++i) n += texto[i] == ',';
    return n;
}

size_t ContaMarcadores(const std::string& texto) {
    size_t n = 0;
    for (char ch : texto) n += ch == '?';
    return n;
}

const std::vector<Esperado>& Esperados() {
    static const std::vector<Esperado> e{
        {ZT_ENTRADA(MTBPAR, "FSEL001"),
         "SELECT T1.Empresa, T1.RazSocial, T1.NomeFant, T1.CGC, T1.InscEstad, T1.InscMun, T1.Endereco, T1.Bairro, "
         "T1.Cidade, T1.UF, T1.Pais, T1.CEP, T1.CxaPostal, T1.Tipo1, T1.DDI1, T1.DDD1, T1.Telefone1, T1.Ramal1, "
         "T1.Tipo2, T1.DDI2, T1.DDD2, T1.Telefone2, T1.Ramal2, T1.Tipo3, T1.DDI3, T1.DDD3, T1.Telefone3, "
         "T1.Ramal3, T1.Tipo4, T1.DDI4, T1.DDD4, T1.Telefone4, T1.Ramal4, T1.Atividade, T1.AutorizaLD, "
         "T1.PerCusFixo, T1.PerPis, T1.PerCofins, T1.PerCPMF, T1.PerIRPJ, T1.PerCSSL, T1.CritPrcVenda, "
         "T1.PisCumul, T1.CofinsCumul, T1.ValMinFatura FROM TBPAR T1 WHERE T1.Empresa  = ?",
         "", 0, ""},
        {ZT_ENTRADA(MTBPNF, "FSEL001"), "", "SELECT T1.EMPRESA, T1.CODIGO, T1.DESCRICAO, ", 38,
         " T1.CODPRO FROM TBPNF T1 WHERE T1.EMPRESA  = ? AND T1.CODIGO  = ?"},
        {ZT_ENTRADA(MTBDOC, "FSEL001"), "", "SELECT T1.Empresa, T1.Seq, T1.TpMov, ", 75,
         " T1.CodCidade FROM TBDOC T1 WHERE T1.Empresa  = ? AND T1.Seq  = ?"},
        {ZT_ENTRADA(MTBICM, "FSEL001"),
         "SELECT T1.EMPRESA, T1.CODIGO, T1.PERCICMS, T1.OBS, T1.PERCICMSF FROM TBICM  T1 WHERE T1.EMPRESA  = ? AND "
         "T1.CODIGO  = ?", "", 0, ""},
        {ZT_ENTRADA(MTBVEN, "FSEL001"),
         "SELECT EMPRESA, CODVEND, CODGER, NOME, DEPTO, CARGO, PERCOMIS, PERCOMIS2,  PERCOMIS3, PERCOMIS4, "
         "QUOTAMINVEN FROM TBVEN WHERE EMPRESA  = ? AND CODVEND  = ?", "", 0, ""},
        {ZT_ENTRADA(MTBREP, "FSEL017"),
         "SELECT CODREPCOM, RAZSOCIAL, PERCOMIS, PERCOMIS2, PERCOMIS3, PERCOMIS4 FROM TBREP WHERE EMPRESA  = ? AND "
         "CODREPCOM  = ?", "", 0, ""},
        {ZT_ENTRADA(MTBDOCIT, "FINS001"), "", "INSERT INTO TBDOCIT (Empresa, Seq, NumNF, SerieNF, Item, ", 59,
         "?, ? )"},
        {ZT_ENTRADA(MTBDOCIT, "FSEL024"),
         "SELECT T1.Item FROM TBDOCIT T1 WHERE T1.Empresa  = ? AND T1.Seq  = ? ORDER BY T1.Item DESC", "", 0, ""},
        {ZT_ENTRADA(MTBMAT, "FSEL001"), "", "SELECT T1.Empresa, T1.CodItem, T1.DscItem, ", 84,
         " T1.RedCredIcms FROM TBMAT T1 WHERE T1.Empresa  = ? AND T1.CodItem  = ?"},
        {ZT_ENTRADA(MTBMAT, "FSEL063"),
         "SELECT T2.EMPRESA, T2.CODITEM, T2.DSCITEM, T2.GRPITEM, T2.DISPON, T2.PRCPROM, T2.DTIPROM, T2.DTFPROM,  "
         "T2.UNDITEM,  T2.CLASFISCAL, T2.SITTRIB, T2.PERCISEN,  T2.PERCOMIS, T2.PERDESC,  T2.CODICMSS, T2.VALOR, "
         "T2.QTDUND, T2.CODEQUIV, T2.IPI, T2.STTR, T1.PRCITEM4, T1.ULTCVALOR, T2.NIVEL,T1.ULTCFORN, T1.CUSTOCTB, "
         "T2.TemAutLD, T1.CustMed, T1.CCusto  FROM TBMATEQ T2, TBMAT T1  WHERE T2.EMPRESA  = ? AND T2.EMPRESA = "
         "T1.EMPRESA AND  T2.CODEQUIV  = ? AND T2.TIPO = ? AND T2.CODITEM = T1.CODITEM", "", 0, ""},
        {ZT_ENTRADA(MTBMAT, "FUPD009"), "UPDATE TBMAT SET QTDITBLOQ= ? WHERE EMPRESA  = ? AND CODITEM  = ?", "", 0, ""},
        {ZT_ENTRADA(MTBPEV, "FSEL001"), "", "SELECT Empresa, NumPed, DataPed, ", 50,
         " CodCidade FROM TBPEV WHERE Empresa  = ? AND NumPed  = ?"},
        {ZT_ENTRADA(MTBPEVIT, "FINS001"), "", "INSERT INTO TBPEVIT (Empresa, NumPed, Item, CodMat, ", 34,
         " PrecoVenda ) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
         "?, ?, ?, ?, ?, ? )"},
        {ZT_ENTRADA(MTBPEVIT, "FSEL003"), "", "SELECT T1.Empresa, T1.NumPed, T1.Item, ", 34,
         " T1.PrecoVenda FROM TBPEVIT T1 WHERE T1.Empresa  = ? AND T1.NumPed  = ? AND T1.Item  < ? ORDER BY "
         "T1.Empresa DESC, T1.NumPed DESC, T1.Item DESC"},
        {ZT_ENTRADA(MTBPEVDC, "FINS001"),
         "INSERT INTO TBPEVDC (EMPRESA, NUMPED, ITEM, DESC1, DESC2, DESC3, DESC4, DESC5 ) VALUES (?, ?, ?, ?, ?, ?, "
         "?, ? )", "", 0, ""},
        {ZT_ENTRADA(MTBICMUF, "FSEL001"),
         "SELECT T1.EMPRESA, T1.CODIGO, T1.UF, T1.PERCICMSF, T1.CAMPOLIVRE1, T1.CAMPOLIVRE2, T1.CAMPOLIVRE3, "
         "T1.STATUS FROM TBICMUF T1 WHERE T1.EMPRESA  = ? AND T1.CODIGO  = ? AND T1.UF  = ?", "", 0, ""},
        {ZT_ENTRADA(MTBPEC, "FSEL001"), "", "SELECT T1.Empresa, T1.NumPed, T1.DataPed, ", 53,
         " T1.NumEmpenho FROM TBPEC T1 WHERE T1.Empresa  = ? AND T1.NumPed  = ?"},
        {ZT_ENTRADA(MTBPECIT, "FINS001"), "", "INSERT INTO TBPECIT (Empresa, NumPed, CodFor, Item, ", 70,
         " CCusto ) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
         "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
         "?, ?, ?, ? )"},
        {ZT_ENTRADA(MTBPECIT, "FSEL003"), "", "SELECT T1.Empresa, T1.NumPed, T1.CodFor, T1.Item, ", 70,
         " T1.CCusto FROM TBPECIT T1  WHERE T1.Empresa  = ? AND T1.NumPed  = ? AND T1.CodFor  = ? AND T1.Item  < ? "
         "ORDER BY T1.Empresa DESC, T1.NumPed DESC, T1.CodFor DESC, T1.Item DESC"},
        {ZT_ENTRADA(MTBCUS, "FSEL001"), "", "SELECT T1.Empresa, T1.CodMat, T1.CodFor, ", 51,
         " T1.RedCredIcms FROM TBCUS T1 WHERE T1.Empresa  = ? AND T1.CodMat  = ? AND T1.CodFor  = ? ORDER BY "
         "T1.Empresa ASC, T1.CodMat ASC, T1.CodFor ASC"},
        {ZT_ENTRADA(MTBFOR, "FSEL002"), "", "SELECT EMPRESA, CODFORN, FISJURID, ", 47,
         " STTR FROM TBFOR WHERE EMPRESA  = ? AND CODFORN  = ?"},
        {ZT_ENTRADA(MTBFOR, "FSEL027"), "SELECT CODFORN FROM TBFOR WHERE EMPRESA  = ? AND CODFORN  = ?", "", 0, ""},
        {ZT_ENTRADA(MTBMATEQ, "FSEL001"),
         "SELECT T1.Empresa, T1.CodEquiv, T1.Tipo, T1.CodItem, T1.UndItem, T1.QtdUnd, T1.Valor, T1.PerValor, "
         "T1.Nivel, T1.DtIProm, T1.DtFProm, T1.PrcProm, T1.StTr, T1.DscItem, T1.GrpItem, T1.GrpItem2, T1.GrpItem3, "
         "T1.GrpItem4, T1.UltCForn, T1.RazFornec, T1.CodRef, T1.Dispon, T1.IPI, T1.ClasFiscal, T1.SitTrib, "
         "T1.PercIsen, T1.CodICMSS, T1.PerComis, T1.PerDesc, T1.Foto, T1.Mensagem, T1.TemAutLD, T1.PesoLiquido, "
         "T1.PesoBruto, T1.CodRetICMS, T1.UndPeso, T1.FatorConvGer, T1.UndGer FROM TBMATEQ T1 WHERE T1.Empresa  = "
         "?  AND T1.Tipo  = ? AND T1.CodEquiv  = ?", "", 0, ""},
        {ZT_ENTRADA(MTBMATEQ, "FSEL011"),
         "SELECT T1.Empresa, T1.CodEquiv, T1.Tipo, T1.CodItem, T1.UndItem, T1.QtdUnd, T1.Valor, T1.PerValor, "
         "T1.Nivel, T1.DtIProm, T1.DtFProm, T1.PrcProm, T1.StTr, T1.DscItem, T1.GrpItem, T1.GrpItem2, T1.GrpItem3, "
         "T1.GrpItem4, T1.UltCForn, T1.RazFornec, T1.CodRef, T1.Dispon, T1.IPI, T1.ClasFiscal, T1.SitTrib, "
         "T1.PercIsen, T1.CodICMSS, T1.PerComis, T1.PerDesc, T1.Foto, T1.Mensagem, T1.TemAutLD, T1.PesoLiquido, "
         "T1.PesoBruto, T1.CodRetICMS, T1.UndPeso, T2.CCusto FROM TBMATEQ T1, TBMAT T2 WHERE T1.Empresa  = ? AND "
         "T1.CodEquiv  = ? AND T1.Tipo = ? AND T1.Empresa  = T2.Empresa AND T1.CodItem = T2.CodItem", "", 0, ""},
        {ZT_ENTRADA(MTBMATAG, "FSEL010"),
         "SELECT T1.Empresa, T1.Codigo, T1.Nome, T1.Item, T1.CodItem, T2.DscItem, T1.CodEquiv, T1.Qtd, T2.UndItem, "
         "T2.QtdUnd, T2.Valor, T1.Campo1, T1.Campo2, T1.STTR, T2.UltCForn, T2.RazFornec, T2.DtIProm, "
         "T2.DtFProm,T2.PrcProm, T1.Observacao, T1.Valor, T1.TIPO  FROM TBMATAG T1, TBMATEQ T2 WHERE T1.Empresa  = "
         "? AND T1.Codigo  = ? AND T1.Item  >= ? AND T1.Empresa = T2.Empresa AND T1.CodItem = T2.CodItem AND "
         "T1.CodEquiv = T2.CodEquiv AND T2.Tipo = ?  ORDER BY T1.Empresa ASC, T1.Codigo ASC, T1.Item ASC", "", 0, ""},
        {ZT_ENTRADA(MTBMATAG, "FUPD005"),
         "UPDATE TBMATAG SET Empresa= ?,Codigo= ?,Nome= ?,StTr = ?, Observacao= ?, Tipo= ? WHERE Empresa  = ? AND "
         "Codigo  = ?", "", 0, ""},
    };
    return e;
}

TEST(ComandosDosModulos, TodoNomeDosComandosAchaSuaColuna) { EXPECT_EQ(ColunasNaoResolvidas(), std::vector<std::string>{}); }

TEST(ComandosDosModulos, CadaModuloTemOsManipuladoresNaOrdemDosCursores) {
    const std::vector<std::pair<const char*, std::vector<const char*>>> ordem{
        {"MTBDOCIT", {"FINS001", "FSEL024"}},
        {"MTBMAT", {"FSEL001", "FSEL063", "FUPD009"}},
        {"MTBPEVIT", {"FINS001", "FSEL003"}},
        {"MTBPECIT", {"FINS001", "FSEL003"}},
        {"MTBFOR", {"FSEL002", "FSEL027"}},
        {"MTBMATEQ", {"FSEL001", "FSEL011"}},
        {"MTBMATAG", {"FSEL010", "FUPD005"}},
    };
    for (auto& [modulo, funcoes] : ordem) {
        EXPECT_EQ(CursoresDoModulo(modulo).size(), funcoes.size()) << modulo;
        for (auto* f : funcoes) EXPECT_FALSE(TextoDoComando(modulo, f).empty()) << modulo << " " << f;
    }
    EXPECT_EQ(TextoDoComando("MTBPAR", "FSEL002"), "");
    EXPECT_TRUE(CursoresDoModulo("MTBXYZ").empty());
}

class Comandos : public ComEsquema {};

TEST_P(Comandos, CadaManipuladorPreparaOTextoExatoEOBancoAceita) {
    for (const Esperado& e : Esperados()) {
        SCOPED_TRACE(std::string(e.e.modulo) + " " + e.e.funcao);
        gravador->chamadas.clear();
        const std::string funcao = e.e.funcao;
        RegistroModulo& r = e.e.registro();
        r.Funcao = funcao;
        r.Transacao = funcao.starts_with("FSEL") ? "REQUERY" : "EXECUTE";
        e.e.entrada();
        ASSERT_GE(gravador->chamadas.size(), 1u);
        const Chamada& prep = gravador->chamadas[0];
        EXPECT_EQ(prep.Transacao, "PREPARE");
        EXPECT_EQ(prep.Status, "00") << c().Msg;
        if (!e.inteiro.empty()) {
            EXPECT_EQ(prep.Texto, e.inteiro);
        } else {
            EXPECT_TRUE(prep.Texto.starts_with(e.inicio)) << prep.Texto;
            EXPECT_TRUE(prep.Texto.ends_with(e.fim)) << prep.Texto;
            EXPECT_EQ(ContaColunas(prep.Texto), e.colunas) << prep.Texto;
            if (funcao.starts_with("FINS")) {
                EXPECT_EQ(ContaMarcadores(prep.Texto), e.colunas);
            }
        }
        // Empty keys and records: nothing found, or a row written.
        EXPECT_TRUE(c().Status == "00" || c().Status == "23") << c().Status << " " << c().Msg;
    }
    EXPECT_TRUE(Mostradas().empty());
}

ZTOLVAN_NOS_DOIS_BANCOS(Comandos);

} // namespace
