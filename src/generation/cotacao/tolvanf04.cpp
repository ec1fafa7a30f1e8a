#include "generation/cotacao/tolvanf04.h"

#include "common/mensagens.h"
#include "common/telas.h"
#include "common/texto.h"
#include "generation/cotacao/cotacao.h"
#include "screens/auxiliary/rodape.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#include "screens/relato.h"
#include "screens/teclas.h"

namespace ztolvan {

TolvanF04::TolvanF04(const TolvanF01& consulta) : Tela("TolvanF04"), consulta_(consulta) {
    Caption = "Impressão";
    Width = 6030;
    Height = 2730;
    Registra(shContorno, "shContorno", 0, 0, 6000, 2700);
    Registra(BarraTitulo1, "BarraTitulo1", 0, 0, 6000, 375);
    Registra(Label1, "Label1", 240, 540, 3000, 240);
    Registra(TxTitulo, "TxTitulo", 240, 780, 5520, 315, 0);
    Registra(Label2, "Label2", 240, 1200, 3000, 240);
    Registra(TxRodape, "TxRodape", 240, 1440, 5520, 315, 1);
    Registra(bok, "bok", 3240, 1920, 1200, 420, 2);
    Registra(BCancela, "BCancela", 4560, 1920, 1200, 420, 3);
    BarraTitulo1.Caption = Caption;
    Label1.Caption = "Título para o Relatório";
    Label2.Caption = "Mensagem para o Rodapé";
    bok.Caption = "Imprimir";
    BCancela.Caption = "&Cancelar";

    for (CaixaTexto* c : {&TxTitulo, &TxRodape}) {
        c->GotFocus = [c] { c->SelecionaAparado(); };
        c->KeyDown = [this](int& KeyCode, int Shift) {
            if (KeyCode == tecla::Enter && Shift == 0) {
                KeyCode = 0;
                JanelasAtuais().EnviaTab(*this);
            }
        };
    }
    bok.Click = [this] { bok_Click(); };
    BCancela.Click = [this] { BCancela_Click(); };
}

void TolvanF04::Form_Load() {
    Protegido(EstiloErro::Log, "Form_Load", Name, [&](int&) {
        TxTitulo.Text.clear();
        TxRodape.Text.clear();
        bok.Enabled = true;
        sbMontaRodape(*this, TextoDataHoje(), "Tecle <ESC> para Sair");
        SetFocus(TxTitulo);
    });
}

void TolvanF04::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == tecla::Esc && Shift == 0) {
        KeyCode = 0;
        BCancela_Click();
    }
}

void TolvanF04::bok_Click() {
    Protegido(EstiloErro::Log, "bok_Click", Name, [&](int& linha) {
        linha = 10;
        bok.Enabled = false;
        impressora_ = NovaImpressora();
        if (impressora_) {
            // The operator learns where the pages went (a PDF has no paper to look for).
            if (ImprimeCotacao(*impressora_, consulta_, TxTitulo.Text, TxRodape.Text) &&
                !impressora_->Destino().empty())
                MostraMensagem("Cotação enviada para " + impressora_->Destino() + ".", msg::Informacao,
                               "Impressão");
        } else
            MostraMensagem("Verifique a Impressora !!! ", msg::Exclamacao, "Impressão");
        impressora_.reset();
        linha = 20;
        bok.Enabled = true;
        Unload();
    });
    // A failure above leaves the button usable.
    bok.Enabled = true;
}

void TolvanF04::BCancela_Click() {
    Protegido(EstiloErro::Log, "BCancela_Click", Name, [&](int&) {
        if (bok.Enabled) {
            Unload();
            DoEvents();
        }
        // A job still open (a cancel while printing) is ended here.
        if (impressora_) {
            impressora_->Encerra();
            impressora_.reset();
        }
    });
}

} // namespace ztolvan
