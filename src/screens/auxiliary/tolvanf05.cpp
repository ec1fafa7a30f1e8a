#include "screens/auxiliary/tolvanf05.h"

#include "common/conversao.h"
#include "common/formato.h"
#include "common/texto.h"
#include "screens/relato.h"
#include "screens/teclas.h"
#include "screens/troca.h"

namespace ztolvan {

TolvanF05::TolvanF05() : Tela("TolvanF05") {
    Caption = "Gera Documento";
    Width = 4230;
    Height = 2130;
    Registra(shContorno, "shContorno", 0, 0, 4200, 2100);
    Registra(Shape1, "Shape1", 120, 120, 3960, 480);
    Registra(lblTitulo, "lblTitulo", 240, 220, 3720, 300);
    Registra(LbInfQtd, "LbInfQtd", 240, 840, 2000, 285);
    Registra(TxQtdGera, "TxQtdGera", 2400, 800, 900, 345, 0);
    Registra(LAviso, "LAviso", 240, 1260, 2040, 720);
    Registra(bok, "bok", 2400, 1440, 1560, 420, 1);
    Shape1.Preenchida = true;
    Shape1.Transparente = false;
    Shape1.FillColor = Shape1.BorderColor = RGB(65, 105, 225);
    lblTitulo.Caption = "Geração de Documento";
    lblTitulo.Font = {"Arial", 12, true};
    lblTitulo.ForeColor = cores::Branco;
    LbInfQtd.Caption = "Informe a Quantidade";
    TxQtdGera.Mask = "999";
    TxQtdGera.PromptChar = ' ';
    bok.Caption = "&Gerar";
    LAviso.WordWrap = true;
    LAviso.ForeColor = RGB(192, 0, 0);
    LAviso.Font.Negrito = true;

    TxQtdGera.GotFocus = [this] {
        TxQtdGera.Text = "1";
        TxQtdGera.SelecionaTudo();
        AtualizaAviso();
    };
    TxQtdGera.Change = [this] { AtualizaAviso(); };
    TxQtdGera.KeyDown = [this](int& KeyCode, int Shift) {
        if ((KeyCode == tecla::Enter || KeyCode == tecla::Esc) && Shift == 0) {
            KeyCode = 0;
            bok_Click();
        }
    };
    bok.Click = [this] { bok_Click(); };
}

void TolvanF05::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == tecla::Esc && Shift == 0) {
        KeyCode = 0;
        Unload();
    }
}

void TolvanF05::AtualizaAviso() {
    const std::optional<int64_t>& disponiveis = Troca().AgrupamentosDisponiveis;
    const double pedidos = Val(TxQtdGera.Text);
    if (!disponiveis || pedidos <= static_cast<double>(*disponiveis)) {
        LAviso.Caption.clear();
        return;
    }
    LAviso.Caption = *disponiveis == 0 ? "O estoque não atende nenhum agrupamento completo."
                     : *disponiveis == 1
                         ? "O estoque atende só 1 agrupamento completo."
                         : "O estoque atende só " + Formata(static_cast<double>(*disponiveis), "#,##0") +
                               " agrupamentos completos.";
}

void TolvanF05::bok_Click() {
    Protegido(EstiloErro::Log, "bok_Click", Name, [&](int& linha) {
        linha = 10;
        Troca().QtdGera = CInt(Val(TxQtdGera.Text));
        linha = 20;
        Unload();
    });
}

} // namespace ztolvan
