// The consultation screen as a sales order host opens it, in a real window on
// a private X server (ctest runs this under xvfb-run) and under the store's
// locale: xdotool plays the operator through `ztolvan processa --opcao 1`,
// from the keyboard alone, on both databases; then the order is read back.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "apoio/linha_de_comando.h"
#include "data/banco_param.h"

namespace {

using namespace ztolvan::teste;

// The store's desktop, whatever locale ctest itself runs in.
const std::string Loja = "LANG=pt_BR.UTF-8 LC_ALL=pt_BR.UTF-8 ";

class ConsultaJanela : public SobreOsDoisBancos {
  protected:
    void SetUp() override {
        ASSERT_NE(std::getenv("DISPLAY"), nullptr) << "ctest runs this under xvfb-run";
        ASSERT_EQ(Executa("command -v xdotool >/dev/null").codigo, 0) << "xdotool is needed to type";
        SobreOsDoisBancos::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        setenv("ZTOLVAN_LOG_DIR", db->Pasta().c_str(), 1);
        // The server's connection works in the test's own schema (PGOPTIONS, inherited).
        conexao = GetParam() == Kind::Sqlite
                      ? " --db " + db->Banco()
                      : " --servidor " + db->Servidor() + " --banco " + db->Banco() + " --usuario " + db->Usuario() +
                            (db->Senha().empty() ? "" : " --senha-banco " + db->Senha());
        const Saida s = Executa(std::string(ZTOLVAN_CLI) + " seed" + conexao + " 2>&1");
        ASSERT_EQ(s.codigo, 0) << s.texto;
    }

    // Opens the screen of sales order 1 and, once its window is up, plays
    // 'operador': shell lines that may call tecla, digita, espera (a window
    // whose title matches, focused) and some (until no such window shows).
    // What the host printed; the host is killed if the operator got stuck.
    Saida Opera(const std::string& operador) {
        const std::string funcoes =
            "x() { timeout 30 xdotool \"$@\"; }; "
            "tecla() { x key --delay 200 \"$@\"; }; "
            "digita() { x type --delay 100 \"$1\"; }; "
            "espera() { x search --sync --onlyvisible --name \"$1\" windowfocus --sync >/dev/null; }; "
            "some() { for i in $(seq 150); do xdotool search --onlyvisible --name \"$1\" >/dev/null || return 0; "
            "sleep 0.2; done; return 1; }; ";
        const std::string host = "timeout 120 env " + Loja + ZTOLVAN_CLI + " processa" + conexao +
                                 " --empresa 1 --operador DEMO --opcao 1 --origem V --numdoc 1"
                                 " --dados-vendas 5102,1,0,SP,SP,SP,SP";
        return Executa(funcoes + host + " 2>/dev/null & p=$!; if espera 'Atendimento ao Cliente' && " + operador +
                       "; then wait $p; else kill $p; wait $p; exit 99; fi");
    }

    // Product, quantity and unit value of each item of sales order 1, in
    // item order, as the dispatcher reads them back (regional text).
    std::string Itens() {
        const Saida s = Executa(Loja + ZTOLVAN_CLI + " consulta" + conexao +
                                " \"SELECT CodMat2, QtdMat, ValUnit FROM TBPEVIT WHERE Empresa = 1 AND NumPed = 1 "
                                "ORDER BY Item\"");
        const size_t ini = s.texto.find("OPEN: 00\n"), fim = s.texto.find("NEXT:");
        if (ini == std::string::npos || fim == std::string::npos) return s.texto;
        return s.texto.substr(ini + 9, fim - ini - 9);
    }

    std::string conexao;
};

// The grouping's search by code, from the search kind list: "Código", the
// code, Enter; the items of a sales order all start marked.
std::string Busca(const std::string& codigo) {
    return "tecla Down Tab && digita " + codigo + " && tecla Return";
}

// F6 unmarks all; rows 3 and 5 marked with the arrows and F7 (F7 totals the
// marks and sends the highlight back to row 1); row 5's quantity typed as
// "2,5" with F8; Ctrl+G with the multiplier 2. Exactly those two products
// reach the order, each at its price with cents and its quantity times 2.
TEST_P(ConsultaJanela, LinhasMarcadasPeloTecladoSaoAsGeradas) {
    const Saida s = Opera(Busca("000105") +
                          " && tecla F6 Down Down F7 Down Down Down Down F7 Down Down Down Down F8"
                          " && espera Quantidade && tecla 2 comma 5 Return alt+o && some Quantidade"
                          " && espera 'Atendimento ao Cliente' && tecla ctrl+g"
                          " && espera 'Gera Documento' && digita 2 && tecla Return");
    EXPECT_EQ(s.codigo, 0) << s.texto;
    EXPECT_NE(s.texto.find("Zstatusret: 0\n"), std::string::npos) << s.texto;
    // The item statement has no order: the file database hands the grouping's
    // rows back as stored (row 5 the coarse salt), the server sorted by
    // description (DISTINCT; row 5 the ice). Row 3 is the chicken wings on both.
    EXPECT_EQ(Itens(), GetParam() == Kind::Sqlite ? "1049\t4\t18,9\n1051\t5\t3,49\n" : "1049\t4\t18,9\n1056\t5\t12\n");
}

// Every row of 000101 starts marked; Ctrl+G, multiplier 1, and the product
// out of stock left out (Esc answers No). The cents of each price survive
// the desktop's locale.
TEST_P(ConsultaJanela, GeracaoPelaJanelaGravaOsCentavos) {
    const Saida s = Opera(Busca("000101") +
                          " && tecla ctrl+g && espera 'Gera Documento' && tecla Return"
                          " && espera 'Itens em Falta' && tecla Escape");
    EXPECT_EQ(s.codigo, 0) << s.texto;
    const std::string itens = Itens();
    for (const char* linha : {"1001\t1\t24,9\n", "1002\t2\t8,49\n", "1003\t1\t21,9\n"})
        EXPECT_NE(itens.find(linha), std::string::npos) << linha << " in\n" << itens;
}

ZTOLVAN_NOS_DOIS_BANCOS(ConsultaJanela);

} // namespace
