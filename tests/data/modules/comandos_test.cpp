// Every handler of the eighteen modules prepares its statement in its own
// cursor slot and both databases accept it against the schema; one statement
// of each kind is checked as text.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

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

#define ZT_ENTRADA(M, F)                                                                                     \
    Entrada { #M, M, Reg < A_##M##_t, A_##M>, F }

// Within a module, in the order of its cursor slots.
const Entrada Todas[] = {
    ZT_ENTRADA(MTBPAR, "FSEL001"),   ZT_ENTRADA(MTBPNF, "FSEL001"),   ZT_ENTRADA(MTBDOC, "FSEL001"),
    ZT_ENTRADA(MTBICM, "FSEL001"),   ZT_ENTRADA(MTBVEN, "FSEL001"),   ZT_ENTRADA(MTBREP, "FSEL017"),
    ZT_ENTRADA(MTBDOCIT, "FINS001"), ZT_ENTRADA(MTBDOCIT, "FSEL024"), ZT_ENTRADA(MTBMAT, "FSEL001"),
    ZT_ENTRADA(MTBMAT, "FSEL063"),   ZT_ENTRADA(MTBMAT, "FUPD009"),   ZT_ENTRADA(MTBPEV, "FSEL001"),
    ZT_ENTRADA(MTBPEVIT, "FINS001"), ZT_ENTRADA(MTBPEVIT, "FSEL003"), ZT_ENTRADA(MTBPEVDC, "FINS001"),
    ZT_ENTRADA(MTBICMUF, "FSEL001"), ZT_ENTRADA(MTBPEC, "FSEL001"),   ZT_ENTRADA(MTBPECIT, "FINS001"),
    ZT_ENTRADA(MTBPECIT, "FSEL003"), ZT_ENTRADA(MTBCUS, "FSEL001"),   ZT_ENTRADA(MTBFOR, "FSEL002"),
    ZT_ENTRADA(MTBFOR, "FSEL027"),   ZT_ENTRADA(MTBMATEQ, "FSEL001"), ZT_ENTRADA(MTBMATEQ, "FSEL011"),
    ZT_ENTRADA(MTBMATAG, "FSEL010"), ZT_ENTRADA(MTBMATAG, "FUPD005"),
};

// Columns of a select list, or of an insert's column list.
size_t ContaColunas(const std::string& texto) {
    const bool select = texto.starts_with("SELECT");
    const size_t de = select ? 7 : texto.find('(') + 1, ate = select ? texto.find(" FROM ") : texto.find(')');
    if (ate == std::string::npos || ate < de) return 0;
    return 1 + size_t(std::count(texto.begin() + de, texto.begin() + ate, ','));
}

TEST(ComandosDosModulos, TodoNomeDosComandosAchaSuaColuna) {
    EXPECT_EQ(ColunasNaoResolvidas(), std::vector<std::string>{});
}

// Statements built from a record's columns are told by their start, their
// column count and their end; the hand-written ones whole (no count).
TEST(ComandosDosModulos, UmTextoDeCadaTipo) {
    const struct {
        const char *modulo, *funcao, *inicio;
        size_t colunas;
        const char* fim;
    } casos[] = {
        {"MTBPNF", "FSEL001", "SELECT T1.EMPRESA, T1.CODIGO, T1.DESCRICAO, ", 38,
         " T1.CODPRO FROM TBPNF T1 WHERE T1.EMPRESA  = ? AND T1.CODIGO  = ?"},
        {"MTBPEV", "FSEL001", "SELECT Empresa, NumPed, DataPed, ", 50,
         " CodCidade FROM TBPEV WHERE Empresa  = ? AND NumPed  = ?"},
        {"MTBDOCIT", "FINS001", "INSERT INTO TBDOCIT (Empresa, Seq, NumNF, SerieNF, Item, ", 59, "?, ? )"},
        {"MTBMAT", "FUPD009", "UPDATE TBMAT SET QTDITBLOQ= ? WHERE EMPRESA  = ? AND CODITEM  = ?", 0, ""},
        {"MTBMATAG", "FSEL010", "SELECT T1.Empresa, T1.Codigo, T1.Nome, T1.Item, T1.CodItem, T2.DscItem, ",
         22,
         " FROM TBMATAG T1, TBMATEQ T2 WHERE T1.Empresa  = ? AND T1.Codigo  = ? AND T1.Item  >= ? AND "
         "T1.Empresa = T2.Empresa AND T1.CodItem = T2.CodItem AND T1.CodEquiv = T2.CodEquiv AND T2.Tipo = ?  "
         "ORDER BY T1.Empresa ASC, T1.Codigo ASC, T1.Item ASC"},
    };
    for (const auto& k : casos) {
        SCOPED_TRACE(std::string(k.modulo) + " " + k.funcao);
        const std::string texto = TextoDoComando(k.modulo, k.funcao);
        if (k.colunas == 0) {
            EXPECT_EQ(texto, k.inicio);
            continue;
        }
        EXPECT_TRUE(texto.starts_with(k.inicio)) << texto;
        EXPECT_TRUE(texto.ends_with(k.fim)) << texto;
        EXPECT_EQ(ContaColunas(texto), k.colunas) << texto;
        if (texto.starts_with("INSERT")) {
            EXPECT_EQ(size_t(std::count(texto.begin(), texto.end(), '?')), k.colunas);
        }
    }
}

class Comandos : public ComEsquema {};

TEST_P(Comandos, CadaManipuladorPreparaNoSeuCursorEOBancoAceita) {
    std::map<std::string, size_t> usados; // handlers of each module run so far
    for (const Entrada& e : Todas) {
        SCOPED_TRACE(std::string(e.modulo) + " " + e.funcao);
        gravador->chamadas.clear();
        const std::string funcao = e.funcao;
        Chama(e.registro(), e.entrada, e.funcao, funcao.starts_with("FSEL") ? "REQUERY" : "EXECUTE");
        ASSERT_EQ(gravador->chamadas.size(), 2u);
        const Chamada& prep = gravador->chamadas[0];
        EXPECT_EQ(prep.Transacao, "PREPARE");
        EXPECT_EQ(prep.Status, "00") << c().Msg;
        EXPECT_EQ(prep.Texto, TextoDoComando(e.modulo, e.funcao));
        const auto slots = CursoresDoModulo(e.modulo);
        const size_t k = usados[e.modulo]++;
        ASSERT_LT(k, slots.size());
        EXPECT_EQ(gravador->chamadas[1].Cursor, slots[k]);
        // Empty keys and records: nothing found, or a row written.
        EXPECT_TRUE(c().Status == "00" || c().Status == "23") << c().Status << " " << c().Msg;
    }
    for (const auto& [modulo, n] : usados)
        EXPECT_EQ(CursoresDoModulo(modulo).size(), n) << modulo;
    EXPECT_EQ(usados.size(), 18u);
    EXPECT_TRUE(Mostradas().empty());
}

ZTOLVAN_NOS_DOIS_BANCOS(Comandos);

} // namespace
