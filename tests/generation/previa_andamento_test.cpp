// A generation preview: the real generation path inside one held unit of
// change. Nothing stays in the database, and what it shows is, field by
// field, what a real run then writes. And the progress of a long run.
#include "generation/geracao_teste.h"

#include <algorithm>
#include <chrono>
#include <sstream>

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
            for (const auto& l : TodasAsLinhas(std::string("SELECT * FROM ") + t)) {
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

} // namespace

namespace {

// A long run tells how far it is: increasing counts of the marked rows, at
// most every 100 ms, in the words the screen shows.
class Andamento : public GeracaoDemo {};

TEST_P(Andamento, GeracaoLongaDizQuantoFaltaNoMaximoACada100ms) {
    constexpr int Itens = 600;
    std::ostringstream sql;
    sql << "INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, DscItem, CodEquiv, Qtd, UndItem, QtdUnd, "
           "Valor, STTR, Tipo) VALUES ";
    for (int i = 0; i < Itens; ++i) {
        const std::string p = std::to_string(1001 + i % 63);
        sql << (i ? ", " : "") << "(1, '009999', 'Carga', " << i + 1 << ", '" << p << "', 'x', '7891234" << p
            << "00', " << i + 1 << ", 'UN', 1, 1, 0, 1)";
    }
    db->Direto(sql.str());
    db->Direto("UPDATE TBMAT SET QtdItAtu = 100000 WHERE Empresa = 1");
    std::vector<std::pair<int, int>> vistos;
    std::vector<std::chrono::steady_clock::time_point> quando;
    std::vector<std::string> mensagens; // the message line when the next count came
    Gera("V", Valor::Lista{5102, "1", 0, "SP", "SP", "SP", "SP"}, "009999", 1, [&](TolvanF01& f) {
        f.sbMarcarTodosDaTela();
        DefineObservadorAndamento([&, pf = &f](int feitos, int marcados) {
            quando.push_back(std::chrono::steady_clock::now());
            if (!vistos.empty()) mensagens.push_back(pf->CMensagem.Caption);
            vistos.emplace_back(feitos, marcados);
        });
    });
    DefineObservadorAndamento({});
    EXPECT_EQ(ItensGerados().size(), static_cast<size_t>(Itens));
    ASSERT_GE(vistos.size(), 2u) << "600 items took under 200 ms?";
    for (size_t i = 1; i < vistos.size(); ++i) {
        EXPECT_EQ(vistos[i].second, Itens);
        EXPECT_GT(vistos[i].first, vistos[i - 1].first);
        EXPECT_GE(quando[i] - quando[i - 1], std::chrono::milliseconds(95));
        EXPECT_EQ(mensagens[i - 1], TextoAndamento(vistos[i - 1].first, Itens));
    }
    EXPECT_EQ(TextoAndamento(120, 2000), "Gerando item 120 de 2.000");
}

} // namespace

ZTOLVAN_NOS_DOIS_BANCOS(Previa);
ZTOLVAN_NOS_DOIS_BANCOS(Andamento);
