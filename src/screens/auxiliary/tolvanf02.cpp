#include "screens/auxiliary/tolvanf02.h"

#include "common/conversao.h"
#include "common/mensagens.h"
#include "common/telas.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "entry/sessao.h"
#include "screens/auxiliary/rodape.h"
#include "screens/relato.h"
#include "screens/teclas.h"
#include "screens/troca.h"

namespace ztolvan {

TolvanF02::TolvanF02() : Tela("TolvanF02") {
    Caption = "Lista de Produtos Agrupados";
    Registra(shContorno, "shContorno", 0, 0, 6600, 5200);
    Registra(BarraTitulo1, "BarraTitulo1", 0, 0, 6600, 375);
    Registra(lstProdutosAgrupados, "lstProdutosAgrupados", 120, 480, 6360, 3960, 0);
    Registra(Label1, "Label1", 120, 4540, 2400, 240);
    Registra(LMsg, "LMsg", 3000, 4540, 2400, 240);
    BarraTitulo1.Caption = Caption;
    lstProdutosAgrupados.Font = {"Courier New", 9, false};
    lstProdutosAgrupados.ToolTipText = "Duplo clique para Selecionar";
    Label1.Caption = "<ESC> - Cancela";
    LMsg.Caption = "<ENTER> - Seleciona";
    lstProdutosAgrupados.DblClick = [this] { lstProdutosAgrupados_DblClick(); };
    lstProdutosAgrupados.KeyDown = [this](int& k, int s) { lstProdutosAgrupados_KeyDown(k, s); };
}

std::string TolvanF02::Comando(int16_t empresa, const std::string& tipoPreco) {
    return std::string("Select T1.codigo, T1.nome from tbmatag T1, TBMATEQ T2 where ") +
           " T1.empresa = T2.empresa and t1.codequiv = t2.codequiv and " +
           "  T1.empresa = " + TextoDecimal(empresa) + " and T2.TIPO = " + tipoPreco +
           " and t1.STTR = 0 group by T1.empresa, T1.codigo, T1.nome order by T1.empresa, T1.nome";
}

void TolvanF02::Form_Load() {
    Troca().CursorLista = 0;
    Width = shContorno.Width + 30;
    Height = shContorno.Height + 30;
    sbMontaRodape(*this, TextoDataHoje(), "Tecle <ESC> para Sair", "", "", "", LinhaSuporte(), "", "");
    PreencheLista();
}

void TolvanF02::Form_Activate() {
    SetFocus(lstProdutosAgrupados);
    if (lstProdutosAgrupados.ListCount() > 0 && lstProdutosAgrupados.ListIndex < 0)
        lstProdutosAgrupados.ListIndex = 0;
}

void TolvanF02::Form_QueryUnload(int&, int UnloadMode) {
    // The close box is a cancel, like Esc.
    if (UnloadMode == fechamento::MenuDeControle) {
        Troca().CodigoSelecionado.clear();
        Troca().CodigoGravado.clear();
    }
}

void TolvanF02::PreencheLista() {
    Protegido(EstiloErro::Log, "PreencheLista", Name, [&](int& linha) {
        linha = 10;
        const Sessao& s = SessaoAtual();
        VariaveisTroca& t = Troca();
        Comunica& k = ComunicaAtual();
        t.CursorLista = 0;
        codigos_.clear();
        k.Dados = Comando(s.EmpresaConsulta, s.TipoPreco);
        k.Cursor = t.CursorLista;
        k.Transacao = "OPEN";
        ExecutaComunica();
        linha = 20;
        if (k.Status != status::Ok && k.Status != status::SemLinha) {
            MostraMensagem("Erro na consulta da equivalência.", msg::Critico, "AVISO", "Erro: " + k.Msg,
                           s.Operador, "PreencheLista");
            Beep();
            return;
        }
        linha = 30;
        t.CursorLista = k.Cursor;
        while (k.Status == status::Ok) {
            int32_t numero = 0;
            lstProdutosAgrupados.AddItem(TextoFixo(CStr(k.Retorno[1]), 55));
            lstProdutosAgrupados.ItemData[lstProdutosAgrupados.NewIndex()] =
                LeInteiro32(k.Retorno[0], numero) ? numero : 0;
            codigos_.push_back(Apara(CStr(k.Retorno[0])));
            k.Cursor = t.CursorLista;
            k.Transacao = "NEXT";
            k.Retorno = Valor();
            ExecutaComunica();
        }
        linha = 40;
        k.Cursor = t.CursorLista;
        k.Transacao = "CLOSE";
        k.Retorno = Valor();
        ExecutaComunica();
        k.Transacao = "COMMIT";
        k.Retorno = Valor();
        ExecutaComunica();
    });
}

void TolvanF02::Seleciona() {
    VariaveisTroca& t = Troca();
    const int i = lstProdutosAgrupados.ListIndex;
    if (i < 0 || i >= lstProdutosAgrupados.ListCount()) {
        // Nothing to pick: the same as a cancel.
        t.CodigoSelecionado.clear();
        t.CodigoGravado.clear();
        Unload();
        return;
    }
    // A whole-number code goes back as its decimal text, as hosts expect;
    // any other code as its text. The stored code rides along for searches.
    t.CodigoGravado = static_cast<size_t>(i) < codigos_.size() ? codigos_[i]
                                                               : TextoDecimal(lstProdutosAgrupados.ItemData[i]);
    int32_t numero = 0;
    t.CodigoSelecionado = LeInteiro32(Valor(t.CodigoGravado), numero) ? TextoDecimal(numero) : t.CodigoGravado;
    DoEvents();
    lstProdutosAgrupados.Clear();
    codigos_.clear();
    DoEvents();
    Unload();
}

void TolvanF02::lstProdutosAgrupados_DblClick() {
    Protegido(EstiloErro::Log, "lstProdutosAgrupados_DblClick", Name, [&](int&) { Seleciona(); });
}

void TolvanF02::lstProdutosAgrupados_KeyDown(int& KeyCode, int Shift) {
    Protegido(EstiloErro::Log, "lstProdutosAgrupados_KeyDown", Name, [&](int& linha) {
        if (Shift != 0) return;
        if (KeyCode == tecla::Enter) {
            linha = 10;
            KeyCode = 0;
            Seleciona();
        } else if (KeyCode == tecla::Esc) {
            linha = 20;
            KeyCode = 0;
            Troca().CodigoSelecionado.clear();
            Troca().CodigoGravado.clear();
            DoEvents();
            Unload();
        }
    });
}

} // namespace ztolvan
