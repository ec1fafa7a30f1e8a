#include "screens/auxiliary/tolvanf08.h"

#include "common/conversao.h"
#include "common/erro.h"
#include "common/formato.h"
#include "common/mensagens.h"
#include "common/telas.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "screens/auxiliary/rodape.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/relato.h"
#include "screens/teclas.h"
#include "screens/troca.h"

namespace ztolvan {
namespace {

bool Ok(const ResultadoComando& r) { return Formata(Valor(r.situacao), formatos::Dois) == status::Ok; }

// "Erro na função(<proc>) LINHA: <line> - <description>": how the type list
// reports its own failures.
template <class F> bool ProtegidoTipos(const char* procedimento, F&& corpo) {
    int linha = 0;
    try {
        corpo(linha);
        return true;
    } catch (const std::exception& e) {
        const auto* erro = dynamic_cast<const ErroExecucao*>(&e);
        MostraMensagem(std::string("Erro na função(") + procedimento + ") LINHA: " + std::to_string(linha) +
                           " - " + (erro ? erro->Descricao() : std::string(e.what())),
                       msg::Critico, "Aviso");
    }
    return false;
}

} // namespace

TolvanF08::TolvanF08(Grade& agrupamentos) : Tela("TolvanF08"), agrupamentos_(agrupamentos) {
    Caption = "Form1";
    Registra(shContorno, "shContorno", 20, 20, 7200, 4300);
    Registra(BarraTitulo1, "BarraTitulo1", 45, 45, 7110, 375);
    Registra(FrCadastro, "FrCadastro", 120, 540, 6960, 2820);
    Registra(LbCodigo, "LbCodigo", 240, 800, 1200, 240);
    Registra(TxCodigo, "TxCodigo", 1560, 760, 2400, 315, 0);
    Registra(LbNome, "LbNome", 240, 1200, 1200, 240);
    Registra(TxNome, "TxNome", 1560, 1160, 5400, 315, 1);
    Registra(Label1, "Label1", 240, 1600, 1200, 240);
    Registra(CmbSituacao, "CmbSituacao", 1560, 1560, 1800, 315, 2);
    Registra(Label2, "Label2", 3600, 1600, 800, 240);
    Registra(cbTipo, "cbTipo", 4440, 1560, 1200, 315, 3);
    Registra(lblObs, "lblObs", 240, 2000, 1200, 240);
    Registra(txtObservacao, "txtObservacao", 1560, 1960, 5400, 1215, 4);
    Registra(bttIncluir, "bttIncluir", 1800, 3480, 1260, 420, 5);
    Registra(BtListaItem, "BtListaItem", 3120, 3480, 1260, 420, 6);
    Registra(bttLimpar, "bttLimpar", 4440, 3480, 1260, 420, 7);
    Registra(bttSair, "bttSair", 5760, 3480, 1260, 420, 8);
    BarraTitulo1.Caption = "Manutenção de Agrupamento";
    FrCadastro.Caption = "Agrupamento: ";
    LbCodigo.Caption = "Código";
    LbNome.Caption = "Descrição";
    Label1.Caption = "Situação";
    lblObs.Caption = "Observação";
    Label2.Caption = "Tipo";
    TxNome.MaxLength = 100;
    txtObservacao.MaxLength = 300;
    txtObservacao.MultiLine = true;
    bttIncluir.Caption = "&Gravar";
    BtListaItem.Caption = "&Itens";
    bttLimpar.Caption = "&Limpar";
    bttSair.Caption = "&Sair";
    // The items are kept by another product of the suite, not installed here.
    BtListaItem.Enabled = false;
    BtListaItem.ToolTipText = "Itens do agrupamento: o componente de itens da suíte não está instalado";

    bttIncluir.Click = [this] { bttIncluir_Click(); };
    bttLimpar.Click = [this] { bttLimpar_Click(); };
    bttSair.Click = [this] { bttSair_Click(); };
    BtListaItem.Click = [this] { BtListaItem_Click(); };
}

std::string TolvanF08::ComandoTipos() {
    return std::string("SELECT TIPO, ") + " (SELECT COUNT(TIPO) FROM TBMATTP) AS QUANTIDADE " +
           " FROM TBMATTP" + " ORDER BY TIPO";
}

std::string TolvanF08::CodigoDaLinha() const {
    const int r = agrupamentos_.Row();
    if (r < 0 || r >= agrupamentos_.Rows() || agrupamentos_.Cols() < 1) return {};
    return Apara(agrupamentos_.TextMatrix(r, 0));
}

void TolvanF08::Form_Resize() {
    BarraTitulo1.Left = BarraTitulo1.Top = 45;
    shContorno.Left = shContorno.Top = 20;
    Height = shContorno.Height + 35;
    Width = shContorno.Width + 35;
}

void TolvanF08::Form_Load() {
    Protegido(EstiloErro::Previsto, "Form_Load", Name, [&](int& linha) {
        const Sessao& s = SessaoAtual();
        linha = 10;
        IndiceTipoOriginal = -1;
        TxNome.Text.clear();
        txtObservacao.Text.clear();
        cbTipo.Clear();
        Form_Resize();
        linha = 20;
        const std::string sql = "SELECT NOME, STTR, OBSERVACAO, TIPO FROM TBMATAG WHERE CODIGO ='" +
                                DobraAspas(CodigoDaLinha()) + "'" + " AND EMPRESA ='" +
                                TextoDecimal(s.Empresa) + "'";
        clsBancoDados bd;
        bd.fcAbreBancoDadosVeltra(1);
        ResultadoComando r = bd.fcExecutaComando(1, sql, false);
        linha = 30;
        std::string tipo;
        if (Ok(r)) {
            RecordSet& rs = r.rsDadosRetorno;
            rs.MoveFirst();
            if (!rs.Eof()) {
                txtObservacao.Text = Apara(CStr(rs.Fields("OBSERVACAO").Value));
                TxNome.Text = Apara(CStr(rs.Fields("NOME").Value));
                tipo = Apara(CStr(rs.Fields("TIPO").Value));
            }
        }
        linha = 40;
        BarraTitulo1.Empresa = s.Empresa;
        BarraTitulo1.Operador = s.Operador;
        linha = 50;
        TxCodigo.Enabled = false;
        TxCodigo.BackColor = cores::CinzaClaro;
        TxCodigo.Text = A_MTBMATAG().Codigo;
        linha = 60;
        sbPreencheComboSituacao();
        linha = 70;
        sbMontaRodape(*this, TextoDataHoje(), "", "", "", LinhaSuporte(), "", "", "");
        linha = 80;
        sbPreecheComboTipoMat(tipo);
    });
}

void TolvanF08::Form_KeyDown(int& KeyCode, int) {
    Protegido(EstiloErro::Previsto, "Form_KeyDown", Name, [&](int&) {
        if (KeyCode == tecla::Esc) {
            KeyCode = 0;
            sbSair();
        }
    });
}

void TolvanF08::sbSair() {
    Protegido(EstiloErro::Previsto, "sbSair", Name, [&](int&) { Unload(); });
}

void TolvanF08::bttSair_Click() {
    Protegido(EstiloErro::Previsto, "bttSair_Click", Name, [&](int&) { sbSair(); });
}

void TolvanF08::bttLimpar_Click() {
    Protegido(EstiloErro::Previsto, "bttLimpar_Click", Name, [&](int&) { sbLimpaCampos(); });
}

void TolvanF08::BtListaItem_Click() {
    Protegido(EstiloErro::Previsto, "BtListaItem_Click", Name, [&](int&) {
        MostraMensagem("O componente de itens do agrupamento não está instalado.", msg::Informacao, "AVISO");
    });
}

void TolvanF08::sbLimpaCampos() {
    Protegido(EstiloErro::Previsto, "sbLimpaCampos", Name, [&](int&) {
        DoEvents();
        TxCodigo.Text = " ";
        TxNome.Text = " ";
        txtObservacao.Text = " ";
        CmbSituacao.Seleciona(0);
        DoEvents();
    });
}

void TolvanF08::sbPreencheComboSituacao() {
    Protegido(EstiloErro::Previsto, "sbPreencheComboSituacao", Name, [&](int&) {
        CmbSituacao.Clear();
        CmbSituacao.AddItem("Ativo");
        CmbSituacao.AddItem("Inativo");
        CmbSituacao.Seleciona(0);
    });
}

std::optional<std::vector<int16_t>> TolvanF08::fnProcurarTipoMat() {
    clsBancoDados bd;
    bd.fcAbreBancoDadosVeltra(1);
    ResultadoComando r = bd.fcExecutaComando(1, ComandoTipos(), false);
    if (!Ok(r)) return std::nullopt;
    return fnPreencheArrayTipoMat(r.rsDadosRetorno);
}

std::optional<std::vector<int16_t>> TolvanF08::fnPreencheArrayTipoMat(RecordSet& rs) {
    std::optional<std::vector<int16_t>> tipos;
    ProtegidoTipos("fnPreencheArrayTipoMat", [&](int& linha) {
        linha = 10;
        rs.MoveFirst();
        const int32_t quantidade = rs.Eof() ? 0 : CLng(rs.Fields("QUANTIDADE").Value);
        if (quantidade < 0) throw ErroExecucao::SubscritoForaDoIntervalo();
        std::vector<int16_t> v(static_cast<size_t>(quantidade) + 1, 0);
        linha = 20;
        size_t i = 0;
        for (; !rs.Eof(); rs.MoveNext()) {
            if (i >= v.size()) throw ErroExecucao::SubscritoForaDoIntervalo();
            v[i++] = CInt(rs.Fields("TIPO").Value);
        }
        tipos = std::move(v);
    });
    return tipos;
}

void TolvanF08::sbPreecheComboTipoMat(const std::string& tipoAtual) {
    ProtegidoTipos("sbPreecheComboTipoMat", [&](int& linha) {
        linha = 10;
        cbTipo.Clear();
        const auto tipos = fnProcurarTipoMat();
        // No list came back: the same failure as reading an array that is not there.
        if (!tipos) throw ErroExecucao::TiposIncompativeis();
        const size_t limite = tipos->size() - 1;
        for (size_t i = 0; i < limite; ++i)
            cbTipo.AddItem(TextoDecimal((*tipos)[i]));
        linha = 20;
        for (size_t i = 0; i < limite; ++i) {
            if (cbTipo.Itens[i] == tipoAtual) {
                cbTipo.ListIndex = static_cast<int>(i);
                IndiceTipoOriginal = static_cast<int>(i);
                Troca().TipoAgrupamento = CInt(Valor(cbTipo.Text()));
            }
        }
    });
}

std::optional<std::vector<std::string>> TolvanF08::fnItensSemTipo(int16_t tipo) {
    // The grouping's own rows carry each item's equivalence code, whatever
    // the price type the item grid was loaded in; one statement for all.
    const std::string empresa = TextoDecimal(SessaoAtual().Empresa);
    const std::string sql =
        "SELECT T1.CODEQUIV, T1.DSCITEM FROM TBMATAG T1 WHERE T1.EMPRESA = " + empresa + " AND T1.CODIGO = '" +
        DobraAspas(Apara(TxCodigo.Text)) + "' AND NOT EXISTS (SELECT 1 FROM TBMATEQ T3 WHERE T3.EMPRESA = " +
        empresa + " AND T3.CODEQUIV = T1.CODEQUIV AND T3.TIPO = " + TextoDecimal(tipo) + ") ORDER BY T1.ITEM";
    clsBancoDados bd;
    bd.fcAbreBancoDadosVeltra(1);
    ResultadoComando r = bd.fcExecutaComando(1, sql, false);
    if (!Ok(r)) return std::nullopt;
    std::vector<std::string> faltam;
    RecordSet& rs = r.rsDadosRetorno;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        std::string codigo = Apara(CStr(rs.Fields("CODEQUIV").Value));
        if (codigo.empty()) codigo = "(sem equivalência)";
        const std::string descricao = Apara(CStr(rs.Fields("DSCITEM").Value));
        faltam.push_back(codigo + (descricao.empty() ? "" : " - " + descricao));
    }
    return faltam;
}

bool TolvanF08::MoveToTBMATAG() {
    return Protegido(EstiloErro::Previsto, "MoveToTBMATAG", Name, [&](int&) {
        A_MTBMATAG_t& a = A_MTBMATAG();
        a.Codigo = TxCodigo.Text;
        // The record's widths cut a longer name (100) or observation (300).
        a.Nome = Apara(TxNome.Text);
        a.Observacao = Apara(txtObservacao.Text);
    });
}

bool TolvanF08::FazCommit() {
    bool confirmado = false;
    Protegido(EstiloErro::Previsto, "FazCommit", Name, [&](int&) {
        A_MTBMATAG().Transacao = "COMMIT";
        MTBMATAG();
        const Comunica& c = ComunicaAtual();
        confirmado = c.Status == status::Ok;
        if (!confirmado)
            MostraMensagem("Erro no Commit..\\ Comunica.Transacao=" + c.Transacao +
                               "\\ Comunica.Msg=" + c.Msg + "\\ Comunica.Status" + c.Status,
                           msg::OK, "Agrupamento");
    });
    return confirmado;
}

void TolvanF08::bttIncluir_Click() {
    Protegido(EstiloErro::Previsto, "bttIncluir_Click", Name, [&](int& linha) {
        Sessao& s = SessaoAtual();
        VariaveisTroca& t = Troca();
        A_MTBMATAG_t& a = A_MTBMATAG();
        linha = 10;
        // Codes may carry letters (the suite's own do); a blank one cannot be
        // read at all, as reading it as a number never could.
        if (Apara(TxCodigo.Text).empty()) throw ErroExecucao::TiposIncompativeis();
        linha = 20;
        if (!MoveToTBMATAG()) return;
        linha = 30;
        a.Empresa = s.Empresa;
        ChaveMTBMATAG().Codigo = Apara(TxCodigo.Text);
        ChaveMTBMATAG().Empresa = s.Empresa;
        linha = 40;
        a.STTR = static_cast<int16_t>(CmbSituacao.ListIndex);
        linha = 50;
        a.Tipo = CInt(Valor(cbTipo.Text()));
        t.TipoAgrupamento = a.Tipo;
        linha = 60;
        // Only a new type can leave an item without a price; a save that
        // keeps the type is never refused for it.
        const bool trocaTipo = cbTipo.ListIndex != IndiceTipoOriginal;
        if (trocaTipo) {
            const auto faltam = fnItensSemTipo(a.Tipo);
            if (!faltam || !faltam->empty()) {
                // Items that could not be checked are not taken as priced.
                std::string detalhe = faltam ? "Itens sem preço neste tipo:" : "Não foi possível ler os itens.";
                for (const std::string& item : faltam ? *faltam : std::vector<std::string>{})
                    detalhe += "\n" + item;
                cbTipo.ListIndex = IndiceTipoOriginal;
                MostraMensagem("Não existe Tipo " + TextoDecimal(a.Tipo) +
                                   " para todos os itens nesse agrupamento.",
                               msg::Critico, "AVISO", detalhe, s.Operador, "bttIncluir");
                return;
            }
        }
        linha = 70;
        if (trocaTipo) {
            const Valor r = MostraMensagem("Tipo de Preço do Agrupamento será alterado para todos os itens.",
                                           msg::OKCancelar, "Agrupamento");
            if (CDbl(r) != msg::RespostaOK) {
                cbTipo.ListIndex = IndiceTipoOriginal;
                return;
            }
        }
        linha = 80;
        a.Funcao = "FUPD005";
        a.Transacao = "EXECUTE";
        MTBMATAG();
        const Comunica& c = ComunicaAtual();
        if (c.Status != status::Ok) {
            MostraMensagem("Atenção! erro na atualização do agrupamento.", msg::Critico, "AVISO", c.Msg,
                           s.Operador, "bttIncluir");
            // Nothing of a refused update stays pending.
            a.Transacao = "ROLLBACK";
            MTBMATAG();
            Unload();
            return;
        }
        linha = 90;
        if (!FazCommit()) {
            a.Transacao = "ROLLBACK";
            MTBMATAG();
            Unload();
            return;
        }
        linha = 100;
        const int r = agrupamentos_.Row();
        if (r >= 1 && r < agrupamentos_.Rows() && agrupamentos_.Cols() >= 3) {
            agrupamentos_.DefineTextMatrix(r, 0, TxCodigo.Text);
            agrupamentos_.DefineTextMatrix(r, 1, AparaDireita(a.Nome.str()));
            if (a.STTR == 0)
                agrupamentos_.DefineTextMatrix(r, 2, "Ativo");
            else if (a.STTR == 1)
                agrupamentos_.DefineTextMatrix(r, 2, "Inativo");
        }
        linha = 110;
        Unload();
    });
}

void AbreManutencao(TolvanF01& f, const std::string& codigo, bool ativo) {
    TolvanF08 tela(f.MSFGAgrupamento);
    tela.Carrega();
    if (!tela.Carregada()) return;
    tela.TxCodigo.Text = codigo;
    tela.CmbSituacao.Seleciona(ativo ? 0 : 1);
    MostraModal(tela);
}

void InstalaManutencao() {
    AcoesConsulta acoes = AcoesConsultaAtuais();
    acoes.Manutencao = AbreManutencao;
    DefineAcoesConsulta(std::move(acoes));
}

} // namespace ztolvan
