// The quotation through the recording printer, on both databases (the page
// header reads the company): pages of 55 item lines, the description's
// wrap, header, item line, totals and footer as printed, fonts and their
// fallbacks, and the way from the consultation screen's print command.
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <set>

#include "common/contexto.h"
#include "common/formato.h"
#include "common/portas.h"
#include "common/relogio_teste.h"
#include "common/texto.h"
#include "entry/sessao.h"
#include "generation/cotacao/cotacao.h"
#include "generation/cotacao/tolvanf04.h"
#include "screens/demo_telas.h"
#include "screens/janelas.h"
#include "screens/teclas.h"

using namespace ztolvan;
using namespace ztolvan::teste;

namespace {

// A line as the layout places its pieces: each text from its column.
std::string Em(const std::vector<int>& colunas, const std::vector<std::string>& textos) {
    LinhaImpressa l;
    for (size_t i = 0; i < textos.size(); ++i) {
        l.trechos.emplace_back();
        l.trechos.back().coluna = colunas[i];
        l.trechos.back().texto = textos[i];
    }
    return l.Texto();
}
const std::vector<int> ParadasDoItem = {1, 6, 22, 58, 68, 75, 83};
const std::string Total0 = Em({68, 81}, {"Total Geral", "        0,00"});

bool LinhaDeItem(const LinhaImpressa& l) {
    return !l.trechos.empty() && l.trechos[0].coluna == 1 && !l.trechos[0].sublinhado;
}
bool Continuacao(const LinhaImpressa& l) { return l.trechos.size() == 1 && l.trechos[0].coluna == 22; }

class Cotacoes : public TelasNoDemo<> {
  protected:
    void SetUp() override {
        TelasNoDemo::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        DefineFabricaImpressora([this] { return impressora; });
        ParaORelogio(2024, 3, 5, 14, 7, 9);
        f.GridCabecalho();
        f.LNome.Caption = "Cesta básica";
    }
    void TearDown() override {
        DefineFabricaImpressora({});
        DefineRelogio({});
        TelasNoDemo::TearDown();
    }
    void Item(const std::string& marca, const std::string& dsc, const std::string& qtd = "1",
              const std::string& preco = "R$ 1,00", const std::string& emb = "UN",
              const std::string& produto = "1001") {
        f.GCon1.AddItem(marca + "\t" + dsc + "\tAtivo\tFornecedor\t" + qtd + "\t" + preco + "\t\t" + emb +
                        "\t7891234100100\t" + TextoFixo(produto, 20) + "\tREF\t1");
    }
    bool Imprime(const std::string& titulo = "", const std::string& rodape = "") {
        return ImprimeCotacao(*impressora, f, titulo, rodape);
    }
    std::vector<LinhaImpressa>& Pagina(size_t i) { return impressora->paginas.at(i); }
    std::vector<std::string> Textos(size_t pagina) {
        std::vector<std::string> r;
        for (const auto& l : Pagina(pagina))
            r.push_back(l.Texto());
        return r;
    }
    // Item numbers of a page, and how many item lines (continuations too) it holds.
    std::vector<int> Numeros(size_t pagina) {
        std::vector<int> r;
        for (const auto& l : Pagina(pagina))
            if (LinhaDeItem(l) && std::isdigit(static_cast<unsigned char>(l.trechos[0].texto[0])))
                r.push_back(std::stoi(l.trechos[0].texto));
        return r;
    }
    int LinhasDeItens(size_t pagina) {
        return static_cast<int>(Numeros(pagina).size()) +
               static_cast<int>(std::count_if(Pagina(pagina).begin(), Pagina(pagina).end(), Continuacao));
    }

    std::shared_ptr<ImpressoraGravada> impressora = std::make_shared<ImpressoraGravada>();
    TolvanF01 f;
};

TEST_P(Cotacoes, PaginasDe55LinhasNumeradasSemRecomecarComDescricaoQuebradaACada36) {
    for (int i = 1; i <= 66; ++i)
        Item(i % 11 == 0 ? "" : "*", "Produto " + std::to_string(i));
    ASSERT_TRUE(Imprime());
    ASSERT_EQ(impressora->paginas.size(), 2u);
    std::vector<int> numeros(60);
    std::iota(numeros.begin(), numeros.end(), 1);
    EXPECT_EQ(Numeros(0), std::vector<int>(numeros.begin(), numeros.begin() + 55));
    EXPECT_EQ(Numeros(1), std::vector<int>(numeros.begin() + 55, numeros.end()));
    EXPECT_EQ(Pagina(1)[1].Texto(), " Empresa: 1-Bom Preço") << "every page has its header";
    EXPECT_TRUE(impressora->encerrada && !impressora->cancelada);

    // 52 one-line items, one of 80 characters (36 + 36 + 8), one whose middle piece is blank.
    f.GridCabecalho();
    for (int i = 1; i <= 52; ++i)
        Item("*", "Curto " + std::to_string(i));
    Item("*", "Arroz agulhinha tipo 1 pacote de cinco quilos, safra nova, grãos longos e finos.");
    Item("*", std::string(36, 'A') + std::string(36, ' ') + "FIM");
    impressora = std::make_shared<ImpressoraGravada>();
    ASSERT_TRUE(Imprime());
    ASSERT_EQ(impressora->paginas.size(), 2u);
    EXPECT_EQ(LinhasDeItens(0), 55) << "item 53 takes lines 53 to 55";
    std::vector<std::string> pedacos;
    for (size_t p : {0, 1})
        for (const auto& l : Pagina(p))
            if (Continuacao(l)) pedacos.push_back(l.trechos[0].texto);
    EXPECT_EQ(pedacos, (std::vector<std::string>{"co quilos, safra nova, grãos longos ", "e finos.", "FIM"}));
    EXPECT_EQ(Numeros(1), std::vector<int>{54})
        << "an item is never split: its two lines go to the next page";
    EXPECT_EQ(impressora->sobreposicoes, 0);
}

TEST_P(Cotacoes, CabecalhoItensTotaisERodapeComoImpressosEFontesDeReserva) {
    impressora->ausentes = {"Courier New"};
    Item("*", "Arroz agulhinha tipo 1 5kg", "2", FormataMoeda(24.9), "PC", "1001");
    Item("", "Não marcado", "9", "R$ 9,00");
    Item("*", "Café", "0,5", "12,50", "UN", "1004");
    ASSERT_TRUE(Imprime("Natal", "  Obrigado pela preferência "));
    ASSERT_EQ(impressora->paginas.size(), 1u);
    const std::string brancos(60, ' ');
    EXPECT_EQ(
        Textos(0),
        (std::vector<std::string>{
            "", " Empresa: 1-Bom Preço", " Sistema: VELTRA" + brancos + "Data: 05/03/2024",
            " Módulo : VENDAS" + brancos + "Hora:   14:07:09", "", std::string(92, '-'), "",
            "Cotação - Cesta básica(Natal)", "", "",
            Em({1, 6, 22, 64, 68, 78, 88}, {"Item", "Produto", "Descrição", "Qtd", "UN", "Preço", "Total"}),
            "",
            Em(ParadasDoItem,
               {"1", "1001", "Arroz agulhinha tipo 1 5kg", "    2,000", "PC", "   24,90", "     49,80"}),
            Em(ParadasDoItem, {"2", "1004", "Café", "    0,500", "UN", "   12,50", "      6,25"}), "",
            Em({68, 81}, {"Total Geral", "       56,05"}), "", "", Em({2}, {"Obrigado pela preferência"})}));
    const auto& l = Pagina(0);
    EXPECT_TRUE(l[1].trechos[0].negrito && !l[1].trechos[1].negrito) << "labels bold, values not";
    EXPECT_TRUE(l[7].trechos[0].negrito && l[7].trechos[0].tamanho == 12 && l[10].trechos[0].sublinhado);
    EXPECT_EQ(l[12].trechos[0].tamanho, 9);
    EXPECT_EQ(l[12].trechos[0].fonte, "Courier") << "no Courier New on this printer";
    EXPECT_TRUE(l[15].trechos[1].negrito && !l[18].trechos[0].negrito);

    db->Direto(
        "INSERT INTO TBREGSRV (USUARIO, CHAVE, VALOR) VALUES ('TESTE', 'IMPRESSORA MATRICIAL', 'sim')");
    // The matrix printer's draft face, else a fixed-pitch one.
    for (const auto& [ausentes, fonte] : {std::pair{std::set<std::string>{}, "Draft 12cpi"},
                                          std::pair{std::set<std::string>{"Draft 12cpi"}, "Courier New"},
                                          std::pair{std::set<std::string>{"Draft 12cpi", "Courier New"}, "Courier"}}) {
        impressora = std::make_shared<ImpressoraGravada>();
        impressora->ausentes = ausentes;
        ASSERT_TRUE(Imprime());
        EXPECT_EQ(Pagina(0)[12].trechos[0].fonte, fonte);
    }
}

TEST_P(Cotacoes, SemMarcasSemLinhasSemEmpresaOuComAImpressoraEmFalha) {
    Item("", "Sem marca");
    ASSERT_TRUE(Imprime());
    ASSERT_EQ(impressora->paginas.size(), 1u);
    EXPECT_EQ(Pagina(0)[7].Texto(), "Cotação - Cesta básica") << "no title, no parentheses";
    EXPECT_TRUE(Numeros(0).empty());
    EXPECT_EQ(Pagina(0).back().Texto(), Total0);

    f.GridCabecalho();
    impressora = std::make_shared<ImpressoraGravada>();
    ASSERT_TRUE(Imprime("", "Rodapé"));
    EXPECT_EQ(Textos(0), (std::vector<std::string>{"", Total0, "", "", Em({2}, {"Rodapé"})}))
        << "no data rows: no header";
    EXPECT_TRUE(Mostradas().empty());

    Item("*", "Com marca");
    SessaoAtual().Empresa = 99;
    impressora = std::make_shared<ImpressoraGravada>();
    ASSERT_TRUE(Imprime());
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_EQ(Mostradas()[0].Texto.rfind("Erro status = ", 0), 0u);
    EXPECT_EQ(janelas->Conta("Bipe"), 1u);
    EXPECT_EQ(Numeros(0), std::vector<int>{1}) << "the items print without the header";
    EXPECT_EQ(Pagina(0)[0].trechos[0].tamanho, 9) << "in their own size";
    EXPECT_EQ(Pagina(0).back().trechos[0].tamanho, 9);
    db->mensagens->Limpa();

    SessaoAtual().Empresa = 1;
    impressora = std::make_shared<ImpressoraGravada>();
    impressora->falhaNaChamada = 9;
    EXPECT_FALSE(Imprime());
    EXPECT_TRUE(impressora->cancelada && !impressora->encerrada);
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_EQ(Mostradas()[0].Texto, "Verifique a Impressora !!! ");
    EXPECT_EQ(Mostradas()[0].Titulo, "Impressão");
}

TEST_P(Cotacoes, ComandoImprimirPedeOCodigoPerguntaEImprimePeloDialogo) {
    InstalaCotacao();
    Item("*", "Arroz agulhinha tipo 1 5kg");
    f.Tecla(&f.GCon1, tecla::F4, 0);
    EXPECT_EQ(f.CMensagem.Caption, "Código não informado");
    EXPECT_TRUE(Mostradas().empty());

    f.txtPesquisa.Text = "000101";
    db->mensagens->Responde(msg::RespostaNao);
    f.Tecla(&f.GCon1, tecla::F4, 0);
    ASSERT_EQ(Mostradas().size(), 1u);
    EXPECT_EQ(Mostradas()[0].Texto, "Deseja imprimir a Cotação?");
    EXPECT_EQ(Mostradas()[0].Tipo, 36);
    EXPECT_EQ(janelas->Conta("Modal"), 0u) << "No: no dialog";

    janelas->AoMostrar("TolvanF04", [](Tela& t) {
        auto& d = static_cast<TolvanF04&>(t);
        EXPECT_EQ(d.ActiveControl(), &d.TxTitulo);
        EXPECT_EQ(static_cast<Rotulo*>(d.Acha("lblPainel1"))->Caption, "Tecle <ESC> para Sair");
        d.TxTitulo.Digita("Natal");
        d.Tecla(&d.TxTitulo, tecla::Enter, 0);
        EXPECT_EQ(d.ActiveControl(), &d.TxRodape) << "Enter moves on";
        d.TxRodape.Digita("Volte sempre");
        d.bok.Click();
        EXPECT_FALSE(d.Carregada());
    });
    f.Tecla(&f.GCon1, tecla::F4, 0);
    ASSERT_TRUE(impressora->encerrada);
    EXPECT_EQ(Pagina(0)[7].Texto(), "Cotação - Cesta básica(Natal)");
    EXPECT_EQ(Pagina(0).back().Texto(), Em({2}, {"Volte sempre"}));

    impressora = std::make_shared<ImpressoraGravada>();
    janelas->AoMostrar("TolvanF04", [](Tela& t) { t.Tecla(t.ActiveControl(), tecla::Esc, 0); });
    f.Tecla(&f.GCon1, tecla::F4, 0);
    EXPECT_TRUE(impressora->chamadas.empty()) << "Esc prints nothing";

    DefineFabricaImpressora({});
    db->mensagens->Limpa();
    janelas->AoMostrar("TolvanF04", [](Tela& t) { static_cast<TolvanF04&>(t).bok.Click(); });
    f.Tecla(&f.GCon1, tecla::F4, 0);
    ASSERT_EQ(Mostradas().size(), 2u);
    EXPECT_EQ(Mostradas()[1].Texto, "Verifique a Impressora !!! ") << "no printer installed";
}

ZTOLVAN_NOS_DOIS_BANCOS(Cotacoes);

} // namespace
