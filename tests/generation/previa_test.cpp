// A generation preview: the real generation path inside one held unit of
// change. Nothing stays in the database, and what it shows is, field by
// field, what a real run then writes.
#include "generation/geracao_teste.h"

#include <algorithm>

#include "data/despachante.h"
#include "generation/linhas_geradas.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

class Previa : public GeracaoDemo {
  protected:
    // Every row of every table, as text: equal pictures, equal databases.
    std::vector<std::string> Retrato() {
        std::vector<std::string> linhas;
        for (const char* t : {"TBPAR", "TBPNF", "TBDOC", "TBDOCIT", "TBICM", "TBICMUF", "TBVEN", "TBREP", "TBMAT",
                              "TBMATEQ", "TBMATAG", "TBPEV", "TBPEVIT", "TBPEVDC", "TBPEC", "TBPECIT", "TBCUS",
                              "TBFOR", "TBMATTP", "TBREGSRV"}) {
            TabelaResultado r;
            std::string st, msg;
            ConectorAtual()->Consulta(ComunicaAtual().Conexao, std::string("SELECT * FROM ") + t, r, st, msg);
            EXPECT_EQ(st, "00") << t << ": " << msg;
            for (const auto& l : r.linhas) {
                std::string s = t;
                for (const Valor& v : l)
                    s += "|" + CStr(v);
                linhas.push_back(std::move(s));
            }
        }
        std::sort(linhas.begin(), linhas.end());
        return linhas;
    }
};

struct Caso {
    const char* origem;
    Valor dados;
    const char* grupo;
    int16_t tpmov;
};

TEST_P(Previa, NadaFicaEAsLinhasSaoAsQueAGeracaoRealEscreve) {
    Ajuste("BLOQUEIA ITENS", "SIM");
    Ajuste("DESCONTO CASCATA", "SIM");
    const Valor venda = Valor::Lista{5102, "1", -1, "SP", "RJ", "SP", "RJ"};
    const Caso casos[] = {{"V", venda, "000101", 0}, {"C", Valor::Lista{1102, 101}, "000101", 0},
                          {"D", venda, "000102", 2}};
    auto marcaTudo = [](TolvanF01& f) { f.sbMarcarTodosDaTela(); };
    for (const Caso& k : casos) {
        SCOPED_TRACE(k.origem);
        const auto antes = Retrato();
        std::string msg;
        ASSERT_TRUE(ConectorAtual()->RetemAlteracoes(true, msg)) << msg;
        const int16_t statusPrevia = Gera(k.origem, k.dados, k.grupo, 2, marcaTudo, k.tpmov);
        const std::vector<LinhaGerada> previa = LinhasGeradas();
        const std::vector<std::string> mensagensPrevia = Textos();
        ASSERT_TRUE(ConectorAtual()->RetemAlteracoes(false, msg)) << msg;
        EXPECT_EQ(Retrato(), antes) << "the preview left something behind";
        ASSERT_GT(previa.size(), 3u);

        db->mensagens->Limpa();
        EXPECT_EQ(Gera(k.origem, k.dados, k.grupo, 2, marcaTudo, k.tpmov), statusPrevia);
        EXPECT_EQ(LinhasGeradas(), previa);
        EXPECT_EQ(Textos(), mensagensPrevia);
        EXPECT_NE(Retrato(), antes);
        db->mensagens->Limpa();
    }
}

ZTOLVAN_NOS_DOIS_BANCOS(Previa);

} // namespace
