#include "screens/auxiliary/tolvanf03.h"

#include "common/conversao.h"
#include "common/mensagens.h"
#include "common/texto.h"
#include "screens/auxiliary/rodape.h"
#include "screens/janelas.h"
#include "screens/relato.h"
#include "screens/teclas.h"
#include "screens/troca.h"

namespace ztolvan {

TolvanF03::TolvanF03() : Tela("TolvanF03") {
    Caption = "Alteração da Quantidade/Preço";
    Registra(shContorno, "shContorno", 0, 0, 5400, 3500);
    Registra(BarraTitulo1, "BarraTitulo1", 0, 0, 5400, 375);
    Registra(lblDescricao, "lblDescricao", 120, 480, 1500, 240);
    Registra(LEquivalencia, "LEquivalencia", 120, 720, 5160, 285);
    Registra(lblFornecedor, "lblFornecedor", 120, 1080, 1500, 240);
    Registra(LDescricao, "LDescricao", 120, 1320, 5160, 285);
    Registra(Frame1, "Frame1", 120, 1700, 5160, 900);
    Registra(lblQtd, "lblQtd", 240, 1940, 2200, 240);
    Registra(TQtd, "TQtd", 240, 2180, 2200, 315, 0);
    Registra(lblValor, "lblValor", 2760, 1940, 2200, 240);
    Registra(txtValor, "txtValor", 2760, 2180, 2200, 315, 1);
    Registra(BTOk, "BTOk", 2880, 2720, 1140, 375, 2);
    Registra(BtCancela, "BtCancela", 4140, 2720, 1140, 375, 3);
    BarraTitulo1.Caption = Caption;
    lblDescricao.Caption = "Descrição";
    lblFornecedor.Caption = "Fornecedor";
    LEquivalencia.Opaco = LDescricao.Opaco = true;
    Frame1.Caption = "Alterar";
    lblQtd.Caption = "Quantidade Atual";
    lblValor.Caption = "Preço Atual";
    for (CaixaTexto* c : {&TQtd, &txtValor}) {
        c->Format = "###,###,##0.00";
        c->PromptChar = ' ';
        c->MaxLength = 18;
    }
    BTOk.Caption = "&OK";
    BtCancela.Caption = "&Cancelar";

    BTOk.Click = [this] { BTOk_Click(); };
    BtCancela.Click = [this] { BtCancela_Click(); };
    auto tabNoEnter = [this](int& KeyCode, int Shift) {
        if (KeyCode == tecla::Enter && Shift == 0) {
            KeyCode = 0;
            JanelasAtuais().EnviaTab(*this);
        }
    };
    TQtd.KeyDown = tabNoEnter;
    txtValor.KeyDown = tabNoEnter;
}

void TolvanF03::Form_Load() {
    Width = shContorno.Width + 30;
    Height = shContorno.Height + 30;
    sbMontaRodape(*this, TextoDataHoje(), "Tecle <ESC> para Sair", "", "", "", LinhaSuporte(), "", "");
    VariaveisTroca& t = Troca();
    t.AlteracaoConfirmada = false;
    LEquivalencia.Caption = t.DescricaoAlterar;
    LDescricao.Caption = Apara(t.FornecedorAlterar);
    TQtd.Text = CStr(Valor(t.QtdAlterar));
    txtValor.Text.clear();
}

void TolvanF03::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == tecla::Esc && Shift == 0) {
        KeyCode = 0;
        Unload();
    }
}

void TolvanF03::BTOk_Click() {
    Protegido(EstiloErro::Log, "BTOk_Click", Name, [&](int& linha) {
        linha = 10;
        const std::string t = Apara(TQtd.Text);
        if (t.empty() || t == "," || t == ".") TQtd.Text = "0,0000";
        linha = 20;
        const double qtd = ValRegional(TQtd.Text);
        // No quantity, or a negative one, is refused alike.
        if (qtd <= 0) {
            MostraMensagem("Quantidade Inválida", msg::Informacao, "Lista");
            SetFocus(TQtd);
            return;
        }
        linha = 30;
        if (qtd > 1000) {
            const Valor r = MostraMensagem("Confirma a Quantidade de " + TQtd.Text + "?", 292, "Lista");
            if (CInt(r) == msg::RespostaNao) {
                SetFocus(TQtd);
                return;
            }
        }
        linha = 40;
        VariaveisTroca& tr = Troca();
        tr.AlteracaoConfirmada = true;
        tr.QtdAlterar = qtd;
        Unload();
    });
}

} // namespace ztolvan
