// The point of sale's price screen in a real window (ctest runs this under
// xvfb-run): xdotool plays the operator through the X server, and the
// sales-data text the screen built must come back whole, accents and all.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "apoio/linha_de_comando.h"

namespace {

using namespace ztolvan::teste;

// 'n' characters, not bytes, as the screen pads its fields.
std::string Fixo(const std::string& s, size_t n) {
    size_t k = 0;
    for (unsigned char c : s)
        k += (c & 0xC0) != 0x80;
    return s + std::string(n > k ? n - k : 0, ' ');
}

// The demo's breakfast kit (000107, price type 1) for 3 kits: item and
// equivalence codes in 20 characters, the kit's quantity times 3 (the half
// kilos of cheese and ham come out as 1,5), the description in 60, the day's
// price (jam and coffee on their running promotion, 85% to the cent).
std::string TextoDaVenda() {
    struct Item {
        const char *codigo, *qtd, *descricao, *preco;
    };
    const Item itens[] = {
        {"1057", "3", "Pão de forma tradicional 500g", "8,99"},
        {"1058", "3", "Requeijão cremoso 200g", "7,99"},
        {"1059", "1,5", "Queijo muçarela fatiado", "49,9"},
        {"1060", "1,5", "Presunto cozido fatiado", "39,9"},
        {"1061", "3", "Manteiga com sal 200g", "12,9"},
        {"1062", "3", "Geleia de morango 320g", "10,12"},
        {"1063", "3", "Suco de laranja integral 1L", "8,49"},
        {"1004", "3", "Café torrado e moído 500g", "14,36"},
        {"1009", "6", "Leite UHT integral 1L", "4,89"},
    };
    std::string r;
    for (const Item& i : itens)
        r += Fixo(i.codigo, 20) + "|" + Fixo(std::string("7891234") + i.codigo + "00", 20) + "|" + i.qtd +
             "|" + Fixo(i.descricao, 60) + "|" + i.preco + "\u00BB";
    return r;
}

class PdvJanela : public ComBancoDemo {
  protected:
    void SetUp() override {
        ASSERT_NE(std::getenv("DISPLAY"), nullptr) << "ctest runs this under xvfb-run";
        ASSERT_EQ(Executa("command -v xdotool >/dev/null").codigo, 0) << "xdotool is needed to type";
        Prepara("ztolvan-pdv-", false);
    }

    // Starts 'programa' in the background and, once the price window is up,
    // types as an operator: the kit's code, Enter, 3 over the selected 1,
    // Enter, then Alt+O for "&OK". What the program printed, and its exit
    // code; the program is killed if the window never came.
    Saida Opera(const std::string& programa) {
        const std::string xdo = " timeout 30 xdotool ";
        const std::string operador =
            xdo + "search --sync --onlyvisible --name 'Consulta de Preços' windowfocus --sync >/dev/null &&" +
            xdo + "type --delay 80 000107 &&" + xdo + "key --delay 150 Return &&" + xdo +
            "type --delay 80 3 &&" + xdo + "key --delay 150 Return alt+o";
        return Executa("timeout 90 " + programa + " & p=$!; if" + operador +
                       "; then wait $p; else kill $p; wait $p; exit 99; fi");
    }
};

TEST_F(PdvJanela, LinhaDeComandoImprimeOTextoDaVendaInteiro) {
    const Saida s = Opera(std::string(ZTOLVAN_CLI) + " processa --opcao 1 --origem F --db " + banco);
    EXPECT_EQ(s.codigo, 0);
    EXPECT_EQ(s.texto,
              "ZCodigo: 0\nZstatusret: 0\nzstatus: 0\nzstatusmens: \nZDadosVendas: " + TextoDaVenda() + "\n");
}

// A host that loads the library by path gets the window and the whole text;
// one whose buffer is short gets it cut on a whole character, and the full
// length.
TEST_F(PdvJanela, HostPeloPontoDeEntradaCRecebeOTextoDaVenda) {
    const std::string ini = (pasta / "conexao.ini").string();
    std::ofstream(ini) << "Servidor=ACCESS\nBanco=" << banco << "\n";
    setenv("ZTOLVAN_CONFIG", ini.c_str(), 1);
    const std::string texto = TextoDaVenda();
    Saida s = Opera(HOST_PDV);
    EXPECT_EQ(s.codigo, 0);
    EXPECT_EQ(s.texto, "ZDadosVendas: " + texto + "\nZstatusret: 0\n");

    // One byte short of the first line's closing "»".
    const size_t fim = texto.find("\u00BB");
    s = Opera(std::string(HOST_PDV) + " " + LIBZTOLVAN + " " + std::to_string(fim + 2));
    unsetenv("ZTOLVAN_CONFIG");
    EXPECT_EQ(s.codigo, 0);
    EXPECT_EQ(s.texto, "ZDadosVendas: " + texto.substr(0, fim) + "\nZstatusret: 0\nTamanho: " +
                           std::to_string(texto.size()) + "\n");
}

} // namespace
