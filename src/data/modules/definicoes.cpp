// The eighteen table-access modules: handlers in order (the order of their
// cursor slots) with their statements. Column lists come from the records'
// tables; statements that the system writes out whole are kept as written.
#include "data/modules/modulo.h"
#include "data/modules/registros.h"

// Hand-laid tables: one row a line, kept as written.
// clang-format off
namespace ztolvan::modulos {
namespace {

template <class R> DefinicaoModulo Modulo(std::string nome, bool maiusculas, std::vector<Manipulador> m) {
    DefinicaoModulo d;
    d.nome = std::move(nome);
    d.maiusculas = maiusculas;
    d.registro = &RegistroDe<R>;
    d.tabela = &R::Colunas;
    d.manipuladores = std::move(m);
    return d;
}

constexpr bool Mista = false;
constexpr bool Maiuscula = true;

template <class R> std::string T1(std::string_view resto) { return SelectDe(R::Colunas(), "T1.", resto); }
template <class R> std::string SemPrefixo(std::string_view resto) { return SelectDe(R::Colunas(), "", resto); }
template <class R> std::pair<std::string, Alvo> Apelido(const char* a) { return {a, AlvoDe<R>()}; }

std::vector<DefinicaoModulo> Monta() {
    std::vector<DefinicaoModulo> v;
    v.push_back(Modulo<A_MTBPAR_t>(
        "MTBPAR", Mista,
        {Seleciona("FSEL001", T1<A_MTBPAR_t>("FROM TBPAR T1 WHERE T1.Empresa  = ?"),
                   {Apelido<A_MTBPAR_t>("T1")}, AlvoDe<ChaveMTBPAR_t>())}));
    v.push_back(Modulo<A_MTBPNF_t>(
        "MTBPNF", Maiuscula,
        {Seleciona("FSEL001", T1<A_MTBPNF_t>("FROM TBPNF T1 WHERE T1.EMPRESA  = ? AND T1.CODIGO  = ?"),
                   {Apelido<A_MTBPNF_t>("T1")}, AlvoDe<ChaveMTBPNF_t>())}));
    v.push_back(Modulo<A_MTBDOC_t>(
        "MTBDOC", Mista,
        {Seleciona("FSEL001", T1<A_MTBDOC_t>("FROM TBDOC T1 WHERE T1.Empresa  = ? AND T1.Seq  = ?"),
                   {Apelido<A_MTBDOC_t>("T1")}, AlvoDe<ChaveMTBDOC_t>())}));
    v.push_back(Modulo<A_MTBICM_t>(
        "MTBICM", Maiuscula,
        {Seleciona("FSEL001",
                   "SELECT T1.EMPRESA, T1.CODIGO, T1.PERCICMS, T1.OBS, T1.PERCICMSF FROM TBICM  T1 WHERE "
                   "T1.EMPRESA  = ? AND T1.CODIGO  = ?",
                   {Apelido<A_MTBICM_t>("T1")}, AlvoDe<ChaveMTBICM_t>())}));
    v.push_back(Modulo<A_MTBVEN_t>(
        "MTBVEN", Maiuscula,
        {Seleciona("FSEL001",
                   "SELECT EMPRESA, CODVEND, CODGER, NOME, DEPTO, CARGO, PERCOMIS, PERCOMIS2,  PERCOMIS3, "
                   "PERCOMIS4, QUOTAMINVEN FROM TBVEN WHERE EMPRESA  = ? AND CODVEND  = ?",
                   {Apelido<A_MTBVEN_t>("")}, AlvoDe<ChaveMTBVEN_t>())}));
    v.push_back(Modulo<A_MTBREP_t>(
        "MTBREP", Maiuscula,
        {Seleciona("FSEL017",
                   "SELECT CODREPCOM, RAZSOCIAL, PERCOMIS, PERCOMIS2, PERCOMIS3, PERCOMIS4 FROM TBREP WHERE "
                   "EMPRESA  = ? AND CODREPCOM  = ?",
                   {Apelido<A_MTBREP_t>("")}, AlvoDe<ChaveMTBREP_t>())}));
    v.push_back(Modulo<A_MTBDOCIT_t>(
        "MTBDOCIT", Mista,
        {Insere("FINS001", InsertDe("TBDOCIT", A_MTBDOCIT_t::Colunas()), AlvoDe<A_MTBDOCIT_t>()),
         Seleciona("FSEL024",
                   "SELECT T1.Item FROM TBDOCIT T1 WHERE T1.Empresa  = ? AND T1.Seq  = ? ORDER BY T1.Item DESC",
                   {Apelido<A_MTBDOCIT_t>("T1")}, AlvoDe<ChaveMTBDOCIT_t>())}));
    v.push_back(Modulo<A_MTBMAT_t>(
        "MTBMAT", Mista,
        {Seleciona("FSEL001", T1<A_MTBMAT_t>("FROM TBMAT T1 WHERE T1.Empresa  = ? AND T1.CodItem  = ?"),
                   {Apelido<A_MTBMAT_t>("T1")}, AlvoDe<ChaveMTBMAT_t>()),
         // The equivalence columns (T2) go to the equivalence record, the
         // product's own (T1) to this module's record.
         Seleciona("FSEL063",
                   "SELECT T2.EMPRESA, T2.CODITEM, T2.DSCITEM, T2.GRPITEM, T2.DISPON, T2.PRCPROM, T2.DTIPROM, "
                   "T2.DTFPROM,  T2.UNDITEM,  T2.CLASFISCAL, T2.SITTRIB, T2.PERCISEN,  T2.PERCOMIS, T2.PERDESC,  "
                   "T2.CODICMSS, T2.VALOR, T2.QTDUND, T2.CODEQUIV, T2.IPI, T2.STTR, T1.PRCITEM4, T1.ULTCVALOR, "
                   "T2.NIVEL,T1.ULTCFORN, T1.CUSTOCTB, T2.TemAutLD, T1.CustMed, T1.CCusto  FROM TBMATEQ T2, TBMAT "
                   "T1  WHERE T2.EMPRESA  = ? AND T2.EMPRESA = T1.EMPRESA AND  T2.CODEQUIV  = ? AND T2.TIPO = ? "
                   "AND T2.CODITEM = T1.CODITEM",
                   {Apelido<A_MTBMAT_t>("T1"), Apelido<A_MTBMATEQ_t>("T2")}, AlvoDe<ChaveEquivMTBMAT_t>()),
         Altera("FUPD009", "UPDATE TBMAT SET QTDITBLOQ= ? WHERE EMPRESA  = ? AND CODITEM  = ?",
                AlvoDe<A_MTBMAT_t>(), AlvoDe<ChaveMTBMAT_t>())}));
    v.push_back(Modulo<A_MTBPEV_t>(
        "MTBPEV", Mista,
        {Seleciona("FSEL001", SemPrefixo<A_MTBPEV_t>("FROM TBPEV WHERE Empresa  = ? AND NumPed  = ?"),
                   {Apelido<A_MTBPEV_t>("")}, AlvoDe<ChaveMTBPEV_t>())}));
    v.push_back(Modulo<A_MTBPEVIT_t>(
        "MTBPEVIT", Mista,
        {Insere("FINS001", InsertDe("TBPEVIT", A_MTBPEVIT_t::Colunas()), AlvoDe<A_MTBPEVIT_t>()),
         Seleciona("FSEL003",
                   T1<A_MTBPEVIT_t>("FROM TBPEVIT T1 WHERE T1.Empresa  = ? AND T1.NumPed  = ? AND T1.Item  < ? "
                                    "ORDER BY T1.Empresa DESC, T1.NumPed DESC, T1.Item DESC"),
                   {Apelido<A_MTBPEVIT_t>("T1")}, AlvoDe<ChaveMTBPEVIT_t>())}));
    v.push_back(Modulo<A_MTBPEVDC_t>(
        "MTBPEVDC", Maiuscula,
        {Insere("FINS001", InsertDe("TBPEVDC", A_MTBPEVDC_t::Colunas()), AlvoDe<A_MTBPEVDC_t>())}));
    v.push_back(Modulo<A_MTBICMUF_t>(
        "MTBICMUF", Maiuscula,
        {Seleciona("FSEL001",
                   "SELECT T1.EMPRESA, T1.CODIGO, T1.UF, T1.PERCICMSF, T1.CAMPOLIVRE1, T1.CAMPOLIVRE2, "
                   "T1.CAMPOLIVRE3, T1.STATUS FROM TBICMUF T1 WHERE T1.EMPRESA  = ? AND T1.CODIGO  = ? AND "
                   "T1.UF  = ?",
                   {Apelido<A_MTBICMUF_t>("T1")}, AlvoDe<ChaveMTBICMUF_t>())}));
    v.push_back(Modulo<A_MTBPEC_t>(
        "MTBPEC", Mista,
        {Seleciona("FSEL001", T1<A_MTBPEC_t>("FROM TBPEC T1 WHERE T1.Empresa  = ? AND T1.NumPed  = ?"),
                   {Apelido<A_MTBPEC_t>("T1")}, AlvoDe<ChaveMTBPEC_t>())}));
    v.push_back(Modulo<A_MTBPECIT_t>(
        "MTBPECIT", Mista,
        {Insere("FINS001", InsertDe("TBPECIT", A_MTBPECIT_t::Colunas()), AlvoDe<A_MTBPECIT_t>()),
         Seleciona("FSEL003",
                   T1<A_MTBPECIT_t>("FROM TBPECIT T1  WHERE T1.Empresa  = ? AND T1.NumPed  = ? AND T1.CodFor  = ? "
                                    "AND T1.Item  < ? ORDER BY T1.Empresa DESC, T1.NumPed DESC, T1.CodFor DESC, "
                                    "T1.Item DESC"),
                   {Apelido<A_MTBPECIT_t>("T1")}, AlvoDe<ChaveMTBPECIT_t>())}));
    v.push_back(Modulo<A_MTBCUS_t>(
        "MTBCUS", Mista,
        {Seleciona("FSEL001",
                   T1<A_MTBCUS_t>("FROM TBCUS T1 WHERE T1.Empresa  = ? AND T1.CodMat  = ? AND T1.CodFor  = ? "
                                  "ORDER BY T1.Empresa ASC, T1.CodMat ASC, T1.CodFor ASC"),
                   {Apelido<A_MTBCUS_t>("T1")}, AlvoDe<ChaveMTBCUS_t>())}));
    v.push_back(Modulo<A_MTBFOR_t>(
        "MTBFOR", Maiuscula,
        {Seleciona("FSEL002", SemPrefixo<A_MTBFOR_t>("FROM TBFOR WHERE EMPRESA  = ? AND CODFORN  = ?"),
                   {Apelido<A_MTBFOR_t>("")}, AlvoDe<ChaveMTBFOR_t>()),
         // An existence test: its one column goes to CODFORN.
         Seleciona("FSEL027", "SELECT CODFORN FROM TBFOR WHERE EMPRESA  = ? AND CODFORN  = ?",
                   {Apelido<A_MTBFOR_t>("")}, AlvoDe<ChaveMTBFOR_t>())}));
    v.push_back(Modulo<A_MTBMATEQ_t>(
        "MTBMATEQ", Mista,
        {Seleciona("FSEL001",
                   T1<A_MTBMATEQ_t>("FROM TBMATEQ T1 WHERE T1.Empresa  = ?  AND T1.Tipo  = ? AND T1.CodEquiv  = ?"),
                   {Apelido<A_MTBMATEQ_t>("T1")}, AlvoDe<ChaveMTBMATEQ_t>()),
         // The product's cost centre (T2.CCusto) goes to the product record.
         Seleciona("FSEL011",
                   "SELECT T1.Empresa, T1.CodEquiv, T1.Tipo, T1.CodItem, T1.UndItem, T1.QtdUnd, T1.Valor, "
                   "T1.PerValor, T1.Nivel, T1.DtIProm, T1.DtFProm, T1.PrcProm, T1.StTr, T1.DscItem, T1.GrpItem, "
                   "T1.GrpItem2, T1.GrpItem3, T1.GrpItem4, T1.UltCForn, T1.RazFornec, T1.CodRef, T1.Dispon, T1.IPI, "
                   "T1.ClasFiscal, T1.SitTrib, T1.PercIsen, T1.CodICMSS, T1.PerComis, T1.PerDesc, T1.Foto, "
                   "T1.Mensagem, T1.TemAutLD, T1.PesoLiquido, T1.PesoBruto, T1.CodRetICMS, T1.UndPeso, T2.CCusto "
                   "FROM TBMATEQ T1, TBMAT T2 WHERE T1.Empresa  = ? AND T1.CodEquiv  = ? AND T1.Tipo = ? AND "
                   "T1.Empresa  = T2.Empresa AND T1.CodItem = T2.CodItem",
                   {Apelido<A_MTBMATEQ_t>("T1"), Apelido<A_MTBMAT_t>("T2")}, AlvoDe<ChaveMTBMATEQ_t>())}));
    v.push_back(Modulo<A_MTBMATAG_t>(
        "MTBMATAG", Mista,
        {// The grouping's own columns (T1) go to this record, the price type's
         // equivalence columns (T2) to the equivalence record.
         Seleciona("FSEL010",
                   "SELECT T1.Empresa, T1.Codigo, T1.Nome, T1.Item, T1.CodItem, T2.DscItem, T1.CodEquiv, T1.Qtd, "
                   "T2.UndItem, T2.QtdUnd, T2.Valor, T1.Campo1, T1.Campo2, T1.STTR, T2.UltCForn, T2.RazFornec, "
                   "T2.DtIProm, T2.DtFProm,T2.PrcProm, T1.Observacao, T1.Valor, T1.TIPO  FROM TBMATAG T1, TBMATEQ "
                   "T2 WHERE T1.Empresa  = ? AND T1.Codigo  = ? AND T1.Item  >= ? AND T1.Empresa = T2.Empresa AND "
                   "T1.CodItem = T2.CodItem AND T1.CodEquiv = T2.CodEquiv AND T2.Tipo = ?  ORDER BY T1.Empresa "
                   "ASC, T1.Codigo ASC, T1.Item ASC",
                   {Apelido<A_MTBMATAG_t>("T1"), Apelido<A_MTBMATEQ_t>("T2")}, AlvoDe<ChaveMTBMATAG_t>()),
         Altera("FUPD005",
                "UPDATE TBMATAG SET Empresa= ?,Codigo= ?,Nome= ?,StTr = ?, Observacao= ?, Tipo= ? WHERE Empresa  = "
                "? AND Codigo  = ?",
                AlvoDe<A_MTBMATAG_t>(), AlvoDe<ChaveMTBMATAG_t>())}));
    for (size_t i = 0; i < v.size(); ++i) v[i].indice = i;
    return v;
}

} // namespace

const std::vector<DefinicaoModulo>& Definicoes() {
    static const std::vector<DefinicaoModulo> d = Monta();
    return d;
}

} // namespace ztolvan::modulos
// clang-format on
