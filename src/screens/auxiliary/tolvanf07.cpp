#include "screens/auxiliary/tolvanf07.h"

#include <algorithm>

#include "common/conversao.h"
#include "common/datas.h"
#include "common/mensagens.h"
#include "common/telas.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "entry/settings/configuracao.h"
#include "precos/precos.h"
#include "screens/auxiliary/tolvanf02.h"
#include "screens/janelas.h"
#include "screens/relato.h"
#include "screens/teclas.h"
#include "screens/troca.h"

namespace ztolvan {
namespace {

constexpr size_t LarguraCodigo = 20;
constexpr const char* Separador = "|";
constexpr const char* FimDeLinha = "\xC2\xBB"; // "»"

// Saindo goes back to false however the unload ends.
struct Guarda {
    bool& flag;
    ~Guarda() { flag = false; }
};

} // namespace

TolvanF07::TolvanF07() : Tela("TolvanF07") {
    Caption = "Consulta de Preços";
    Width = 5430;
    Height = 3030;
    Registra(shContorno, "shContorno", 0, 0, 5400, 3000);
    Registra(BarraTitulo1, "BarraTitulo1", 0, 0, 5400, 375);
    Registra(Label2, "Label2", 240, 600, 1200, 240);
    Registra(TCodigo, "TCodigo", 1560, 560, 2400, 315, 0);
    Registra(LNome, "LNome", 240, 1020, 4920, 285);
    Registra(LbInfQtd, "LbInfQtd", 240, 1500, 1200, 240);
    Registra(TxQtdGera, "TxQtdGera", 1560, 1460, 700, 315, 1);
    Registra(BTOk, "BTOk", 3960, 1400, 1200, 420, 2);
    Registra(bttLista, "bttLista", 240, 2100, 1500, 420, 3);
    Registra(bttLimpar, "bttLimpar", 1860, 2100, 1800, 420, 4);
    Registra(bttSair, "bttSair", 3780, 2100, 1380, 420, 5);
    BarraTitulo1.Caption = Caption;
    Label2.Caption = "Código";
    LbInfQtd.Caption = "Quantidade :";
    LNome.Font.Negrito = true;
    TCodigo.PromptChar = ' ';
    // A grouping code has 20 characters; more could only match another one.
    TCodigo.MaxLength = static_cast<int>(LarguraCodigo);
    TxQtdGera.Mask = "999";
    TxQtdGera.PromptChar = ' ';
    BTOk.Caption = "&OK";
    bttLista.Caption = "Lista - F2";
    bttLimpar.Caption = "Limpar Campos - F11";
    bttSair.Caption = "Sair - ESC";

    TCodigo.GotFocus = [this] { TCodigo.SelecionaAparado(); };
    TxQtdGera.GotFocus = [this] { TxQtdGera.SelecionaAparado(); };
    TCodigo.KeyDown = [this](int& KeyCode, int Shift) {
        if (Shift != 0) return;
        if (KeyCode == tecla::Enter) {
            KeyCode = 0;
            if (LerCodigo()) JanelasAtuais().EnviaTab(*this);
        } else if (KeyCode == tecla::Direita) {
            KeyCode = 0;
            sbLista();
        }
    };
    TxQtdGera.KeyDown = [this](int& KeyCode, int Shift) {
        if (KeyCode == tecla::Enter && Shift == 0) {
            KeyCode = 0;
            JanelasAtuais().EnviaTab(*this);
        }
    };
    BTOk.Click = [this] { BTOk_Click(); };
    bttLista.Click = [this] { bttLista_Click(); };
    bttLimpar.Click = [this] { bttLimpar_Click(); };
    bttSair.Click = [this] { bttSair_Click(); };
}

void TolvanF07::Form_Load() {
    // The same screen serves every call: each opening starts clean.
    TCodigo.Text.clear();
    LNome.Caption.clear();
    TxQtdGera.Text = "1";
    SetFocus(TCodigo);
}

void TolvanF07::Form_Activate() {
    Protegido(EstiloErro::Log, "Form_Activate", Name, [&](int& linha) {
        linha = 10;
        LerAjuste(Ajuste::DescricaoAgrupamento);
        linha = 20;
        if (Normaliza(SessaoAtual().DescricaoAgrupamento) == "SIM") LerAjuste(Ajuste::QtdPosicoesAgrupamento);
    });
}

void TolvanF07::Form_QueryUnload(int& Cancel, int UnloadMode) {
    // The screen closes only through sbSair, never by its close box.
    if (UnloadMode == fechamento::MenuDeControle) Cancel = 1;
}

void TolvanF07::Form_KeyDown(int& KeyCode, int Shift) {
    Protegido(EstiloErro::Log, "Form_KeyDown", Name, [&](int& linha) {
        linha = 10;
        if (KeyCode == tecla::Esc) {
            KeyCode = 0;
            sbSair();
        } else if (Shift == 0 && KeyCode == tecla::F2) {
            // The captions promise these keys, so they press their buttons.
            linha = 20;
            KeyCode = 0;
            bttLista_Click();
        } else if (Shift == 0 && KeyCode == tecla::F11) {
            linha = 30;
            KeyCode = 0;
            bttLimpar_Click();
        }
    });
}

void TolvanF07::BTOk_Click() {
    Protegido(EstiloErro::Log, "BtOk_Click", Name, [&](int& linha) {
        linha = 10;
        if (Apara(TCodigo.Text).empty()) {
            MostraMensagem("O Código deve ser informado", msg::Informacao, BarraTitulo1.Caption);
            SetFocus(TCodigo);
            return;
        }
        if (!CodigoCabe()) return;
        linha = 20;
        if (Val(TxQtdGera.Text) == 0) {
            MostraMensagem("A quantidade deve ser informada", msg::Informacao, BarraTitulo1.Caption);
            SetFocus(TxQtdGera);
            return;
        }
        linha = 30;
        if (SessaoAtual().Origem == "F") sbGeraDadosVenda(linha);
    });
}

void TolvanF07::bttLista_Click() {
    Protegido(EstiloErro::Log, "bttLista_Click", Name, [&](int&) { sbLista(); });
}

void TolvanF07::bttLimpar_Click() {
    Protegido(EstiloErro::Log, "bttLimpar_Click", Name, [&](int&) { sbLimparCampos(); });
}

void TolvanF07::bttSair_Click() {
    Protegido(EstiloErro::Log, "bttSair_Click", Name, [&](int&) { sbSair(); });
}

bool TolvanF07::CodigoCabe() {
    if (Largura(Apara(TCodigo.Text)) <= LarguraCodigo) return true;
    MostraMensagem("O Código deve ter no máximo 20 caracteres", msg::Informacao, BarraTitulo1.Caption);
    SetFocus(TCodigo);
    return false;
}

void TolvanF07::PosicionaChave() {
    const Sessao& s = SessaoAtual();
    ChaveMTBMATAG_t& k = ChaveMTBMATAG();
    k.Empresa = s.EmpresaConsulta;
    k.Codigo = Apara(TCodigo.Text);
    k.Item = 0;
    k.Tipo = CInt(Valor(s.TipoPreco));
}

bool TolvanF07::LerCodigo() {
    bool achou = false;
    Protegido(EstiloErro::Log, "LerCodigo", Name, [&](int& linha) {
        linha = 10;
        LNome.Caption.clear();
        if (Apara(TCodigo.Text).empty()) return;
        if (!CodigoCabe()) {
            LNome.Caption = "Inexistente";
            return;
        }
        linha = 20;
        PosicionaChave();
        A_MTBMATAG().Funcao = "FSEL010";
        A_MTBMATAG().Transacao = "REQUERY";
        MTBMATAG();
        linha = 30;
        const Comunica& c = ComunicaAtual();
        if (c.Status == status::Ok) {
            achou = true;
            LNome.Caption = AparaDireita(A_MTBMATAG().Nome.str());
            if (A_MTBMATAG().STTR != 0)
                MostraMensagem("Agrupamento Inativo", msg::Exclamacao, "Consulta de Agrupamento");
        } else if (c.Status == status::SemLinha) {
            LNome.Caption = "Inexistente";
            MostraMensagem("Não existem itens cadastrados neste agrupamento para o tipo de preço " +
                               SessaoAtual().TipoPreco,
                           msg::OK, "Agrupamento");
        } else {
            MostraMensagem("Erro não previsto na consulta do agrupamento.", msg::Critico, "Agrupamento",
                           "Erro: " + c.Msg);
        }
    });
    return achou;
}

double TolvanF07::PrecoPromocional(bool& ok) {
    double preco = 0;
    ok = Protegido(EstiloErro::Previsto, "PrecoPromocional", Name, [&](int& linha) {
        linha = 10;
        const A_MTBMATEQ_t& e = A_MTBMATEQ();
        preco = PrecoDoDia(e.Valor, e.PrcProm, e.DtIProm.str(), e.DtFProm.str(), HojeAAAAMMDD());
    });
    return preco;
}

void TolvanF07::sbLista() {
    Protegido(EstiloErro::Log, "sbLista", Name, [&](int& linha) {
        linha = 10;
        TolvanF02 lista;
        MostraModal(lista);
        linha = 20;
        TCodigo.Text = Troca().CodigoGravado;
        if (LerCodigo()) JanelasAtuais().EnviaTab(*this);
    });
}

void TolvanF07::sbLimparCampos() {
    Protegido(EstiloErro::Log, "sbLimparCampos", Name, [&](int&) {
        TCodigo.Text.clear();
        LNome.Caption.clear();
        SetFocus(TCodigo);
    });
}

void TolvanF07::sbSair() {
    Protegido(EstiloErro::Log, "sbSair", Name, [&](int&) {
        if (Saindo) {
            MostraMensagem("Repita a Operação", msg::Informacao, BarraTitulo1.Caption);
            return;
        }
        Saindo = true;
        Guarda g{Saindo};
        Unload();
        DoEvents();
    });
}

std::string TolvanF07::PrefixoNome(const std::string& nome) {
    const Sessao& s = SessaoAtual();
    if (Normaliza(s.DescricaoAgrupamento) != "SIM") return {};
    const double n = std::max(0.0, Val(s.QtdPosicoesAgrupamento));
    return "[" + Esquerda(Apara(nome), static_cast<size_t>(n)) + "] ";
}

std::string TolvanF07::LinhaDadosVenda(const std::string& codItem, const std::string& codEquiv, double qtd,
                                       const std::string& prefixo, const std::string& dscItem, double preco) {
    return TextoFixo(codItem, 20) + Separador + TextoFixo(codEquiv, 20) + Separador + CStr(Valor(qtd)) +
           Separador + prefixo + TextoFixo(dscItem, 60) + Separador + CStr(Valor(preco)) + FimDeLinha;
}

void TolvanF07::sbGeraDadosVenda(int& linha) {
    Sessao& s = SessaoAtual();
    const Comunica& c = ComunicaAtual();
    A_MTBMATAG_t& ag = A_MTBMATAG();
    auto fecha = [&] {
        ag.Funcao = "FSEL010";
        ag.Transacao = "CLOSE";
        MTBMATAG();
    };
    linha = 10;
    PosicionaChave();
    ag.Funcao = "FSEL010";
    ag.Transacao = "OPEN";
    MTBMATAG();
    linha = 20;
    if (c.Status == status::Ok && ag.STTR != 0) {
        fecha();
        MostraMensagem("Agrupamento Inativo", msg::Exclamacao, "Consulta de Agrupamento");
        return;
    }
    linha = 30;
    s.DadosRetorno = Valor(std::string());
    const double fator = Val(TxQtdGera.Text);
    // The name is the one of the grouping whose items go out, read with
    // them: never a label left by an earlier code.
    std::string prefixo;
    if (c.Status == status::Ok) {
        LNome.Caption = AparaDireita(ag.Nome.str());
        prefixo = PrefixoNome(ag.Nome.str());
    }
    std::string texto;
    while (c.Status == status::Ok) {
        linha = 40;
        bool precoLido = false;
        const double preco = PrecoPromocional(precoLido);
        if (!precoLido) {
            // No line may go out without its price: nothing of the sale is
            // handed back, whichever way the screen is left.
            fecha();
            return;
        }
        texto +=
            LinhaDadosVenda(ag.CodItem, ag.CodEquiv, fator * ag.Qtd, prefixo, A_MTBMATEQ().DscItem, preco);
        linha = 50;
        ag.Funcao = "FSEL010";
        ag.Transacao = "NEXT";
        MTBMATAG();
        if (c.Status != status::SemLinha && c.Status != status::Ok) {
            const std::string erro = c.Msg;
            s.DadosRetorno = Valor(texto); // the lines built so far stay
            fecha();
            MostraMensagem("Comando Incorreto " + erro, msg::Informacao, BarraTitulo1.Caption);
            Beep();
            return;
        }
    }
    linha = 60;
    fecha();
    s.DadosRetorno = Valor(texto);
    if (!Apara(texto).empty()) s.StatusRet = 0;
    linha = 70;
    DoEvents();
    FazCommit();
    sbSair();
}

void TolvanF07::FazCommit() {
    Protegido(EstiloErro::Log, "FazCommit", Name, [&](int&) {
        A_MTBMATAG().Transacao = "COMMIT";
        MTBMATAG();
        const Comunica& c = ComunicaAtual();
        if (c.Status != status::Ok)
            MostraMensagem("Erro no Commit..\\ Comunica.Transacao=" + c.Transacao +
                               "\\ Comunica.Msg=" + c.Msg + "\\ Comunica.Status" + c.Status,
                           msg::OK, "Agrupamento");
    });
}

} // namespace ztolvan
