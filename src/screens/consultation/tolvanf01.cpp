#include "screens/consultation/tolvanf01.h"

#include <mutex>

#include "common/conversao.h"
#include "common/formato.h"
#include "common/mensagens.h"
#include "common/telas.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/modules/modulos.h"
#include "entry/sessao.h"
#include "entry/settings/configuracao.h"
#include "screens/auxiliary/rodape.h"
#include "screens/auxiliary/tolvanf02.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/janelas.h"
#include "screens/relato.h"
#include "screens/teclas.h"
#include "screens/troca.h"

namespace ztolvan {
namespace {

std::mutex travaAcoes;

// Built on first use: the library installs the commands while it loads, and
// a namespace-scope object could be initialised after that and wipe them.
AcoesConsulta& AcoesInstaladas() {
    static AcoesConsulta a;
    return a;
}

constexpr const char* Selecione = "Selecione...";
constexpr int LarguraTela = 13500;

void Indisponivel(const std::string& funcao) {
    MostraMensagem("A função " + funcao + " ainda não está disponível.", msg::Informacao, "AVISO");
}

std::string Situacao(int16_t dispon) {
    switch (dispon) {
    case 0:
        return "Ativo";
    case 1:
        return "Bloqueado";
    case 2:
        return "Inativo";
    default:
        return "";
    }
}

// DISPON read as a 16-bit number; a value that is no number is as unknown
// as an unlisted one, and shows no text.
// The grouping item's price type; NULL reads as 0 on either database (the
// file database hands back the '' of ISNULL(TIPO, '')).
int16_t TipoDe(const Valor& v) {
    if (v.eTexto()) return CInt(Val(v.texto()));
    return CInt(v);
}

int16_t DisponDe(const Valor& v) {
    try {
        return CInt(Valor(Apara(CStr(v))));
    } catch (const ErroExecucao&) {
        return -1;
    }
}

} // namespace

void DefineAcoesConsulta(AcoesConsulta acoes) {
    std::lock_guard g(travaAcoes);
    AcoesInstaladas() = std::move(acoes);
}

AcoesConsulta AcoesConsultaAtuais() {
    std::lock_guard g(travaAcoes);
    return AcoesInstaladas();
}

TolvanF01::TolvanF01() : Tela("TolvanF01") {
    const int w = LarguraTela;
    Registra(shContorno, "shContorno", 0, 0, w, 7500);
    Registra(BarraTitulo1, "BarraTitulo1", 0, 0, w, 420);
    Registra(Frame1, "Frame1", 120, 480, w - 240, 900);
    Registra(lblTipo, "lblTipo", 240, 720, 2400, 240);
    Registra(cboPesquisa, "cboPesquisa", 240, 960, 2400, 315, 0);
    Registra(lblTipoPesquisa, "lblTipoPesquisa", 2880, 720, 6000, 240);
    Registra(txtPesquisa, "txtPesquisa", 2880, 960, 6000, 315, 1);
    Registra(bttPesquisa, "bttPesquisa", 9120, 900, 1500, 420, 2);
    Registra(btnVerLista, "btnVerLista", 10800, 900, 1000, 420, 5);
    Registra(btnAlterar, "btnAlterar", 11880, 900, 1000, 420, 6);
    Registra(Label8, "Label8", 120, 1440, 2400, 240);
    Registra(LNome, "LNome", 2640, 1440, 8000, 240);
    Registra(MSFGAgrupamento, "MSFGAgrupamento", 120, 1680, w - 240, 2160, 3);
    Registra(Label4, "Label4", 120, 3900, 3000, 240);
    Registra(LTotais, "LTotais", 3240, 3900, w - 3360, 240);
    Registra(GCon1, "GCon1", 120, 4140, w - 240, 2760, 4);
    GCon1.ColunaMarca = ColMarca;
    Registra(LDisponibilidade, "LDisponibilidade", 120, 6930, w - 240, 240);
    Registra(CMensagem, "CMensagem", 120, 6960, 6000, 240);

    Frame1.Caption = "Pesquisa";
    lblTipo.Caption = "Tipo de Pesquisa";
    lblTipoPesquisa.Caption = "Dado a Ser Pesquisado";
    bttPesquisa.Caption = "Capturar";
    Label8.Caption = "Agrupamentos";
    Label4.Caption = "Itens do Agrupamento";
    btnVerLista.Caption = "Visualizar lista de produtos agrupados";
    btnAlterar.Caption = "Alterar quantidade ou valor";
    LNome.Font.Negrito = true;
    // The message line shows in the footer; the label only carries the text.
    CMensagem.Visible = false;
    txtPesquisa.MaxLength = 100;

    cboPesquisa.Click = [this] { cboPesquisa_Click(); };
    bttPesquisa.Click = [this] { bttPesquisa_Click(); };
    txtPesquisa.KeyDown = [this](int& k, int s) { txtPesquisa_KeyDown(k, s); };
    btnVerLista.Click = [this] {
        Protegido(EstiloErro::Log, "btnVerLista_Click", Name, [&](int&) { VisualizarLista(); });
    };
    btnAlterar.Click = [this] {
        Protegido(EstiloErro::Log, "btnAlterar_Click", Name, [&](int&) { MnuAltQtd_Click(); });
    };
    MSFGAgrupamento.Click = [this] { MSFGAgrupamento_Click(); };
    MSFGAgrupamento.SelChange = [this] { MSFGAgrupamento_Click(); };
    MSFGAgrupamento.DblClick = [this] { MSFGAgrupamento_DblClick(); };
    // Enter and double click on the items do nothing.
    GCon1.KeyDown = [](int& k, int) {
        if (k == tecla::Enter) k = 0;
    };
    BarraTitulo1.Menu = [this] { JanelasAtuais().MostraMenu(*this, mnuArquivo, 0, BarraTitulo1.Height); };

    struct Item {
        ItemMenu& m;
        const char* nome;
        const char* caption;
        Atalho atalho;
        void (TolvanF01::*comando)();
    };
    const Item itens[] = {
        {mnuArquivo, "mnuArquivo", "Arquivo", {}, nullptr},
        {mnuLista, "mnuLista", "Lista", {}, nullptr},
        {mnu_visualizarLista,
         "mnu_visualizaLista",
         "Visualizar Lista",
         {tecla::F2},
         &TolvanF01::VisualizarLista},
        {mnuPesquisarItens, "mnuPesquisarItens", "Pesquisar Itens", {tecla::F3}, &TolvanF01::sbPesquisaItens},
        {mnuImprimirLista, "mnuImprimirLista", "Imprimir Lista", {tecla::F4}, &TolvanF01::sbImprimir},
        {mnuItens, "mnuItens", "Itens do Agrupamento", {}, nullptr},
        {mnuMarcar, "mnuMarcar", "Marcar Todos", {tecla::F5}, &TolvanF01::sbMarcarTodosDaTela},
        {mnuDesmarcar, "mnuDesmarcar", "Desmarcar Todos", {tecla::F6}, &TolvanF01::sbDesmarcarTodosDaTela},
        {mnuSelecionado,
         "mnuSelecionado",
         "Marcar Selecionado",
         {tecla::F7},
         &TolvanF01::sbMarcarSelecionado},
        {mnuAltQtd, "mnuAltQtd", "Alterar Quantidade", {tecla::F8}, &TolvanF01::MnuAltQtd_Click},
        {mnuNovaPesquisa, "mnuNovaPesquisa", "Nova Pesquisa", {tecla::F11}, &TolvanF01::sbNovaPesquisa},
        {mnuGeraDocumentos,
         "mnuGeraDocumentos",
         "Gerar Documentos",
         {tecla::Letra('G'), modificador::Ctrl},
         &TolvanF01::sbGerarDocumento},
        {mnuCaptura, "mnuCaptura", "Captura", {tecla::Letra('C'), modificador::Ctrl}, &TolvanF01::Captura},
        {mnuSair, "mnuSair", "Sair", {tecla::Letra('S'), modificador::Ctrl}, &TolvanF01::sbSair},
    };
    for (const Item& i : itens) {
        i.m.Name = i.nome;
        i.m.Caption = i.caption;
        i.m.Shortcut = i.atalho;
        if (i.comando) {
            const std::string rotina = std::string(i.nome) + "_Click";
            auto comando = i.comando;
            i.m.Click = [this, rotina, comando] {
                Protegido(EstiloErro::Log, rotina, Name, [&](int&) { (this->*comando)(); });
            };
        }
    }
    mnu_visualizarLista.Name = "mnu_visualizarLista";
    mnuArquivo.Adiciona(mnuLista).Adiciona(mnuItens).Adiciona(mnuNovaPesquisa).Adiciona(mnuGeraDocumentos);
    mnuArquivo.Adiciona(mnuCaptura).Adiciona(mnuSair);
    mnuLista.Adiciona(mnu_visualizarLista).Adiciona(mnuPesquisarItens).Adiciona(mnuImprimirLista);
    mnuItens.Adiciona(mnuMarcar).Adiciona(mnuDesmarcar).Adiciona(mnuSelecionado).Adiciona(mnuAltQtd);
    Menus = {&mnuArquivo};
}

TolvanF01::~TolvanF01() = default;

// ---------------------------------------------------------------- start-up

void TolvanF01::AplicaModo() {
    const Sessao& s = SessaoAtual();
    const std::string modo = Maiusculas(s.OrigemTrim);
    std::string titulo;
    MSFGAgrupamento.ToolTipText.clear();
    if (modo == "P") {
        mnuCaptura.Visible = true;
        mnuGeraDocumentos.Visible = false;
        DefineMensagem("Tecle <CTRL+C> para Capturar Código do Agrupamento");
        // The message line goes back to "Tecle <ESC> para Sair" below; the
        // grid keeps saying how to capture.
        MSFGAgrupamento.ToolTipText = "Tecle <CTRL+C> ou dê um duplo clique para capturar o código do agrupamento";
        titulo = "[Orderm de Produção]";
        NoTopo = true;
        MantemNoTopo(this, true);
    } else if (modo == "V") {
        mnuGeraDocumentos.Caption = "Gera Atendimento";
        titulo = "[Atendimento ao Cliente]";
    } else if (modo == "C") {
        titulo = "[Pedido de Compra]";
        mnuGeraDocumentos.Caption = "Gera Pedido Compra";
    } else if (modo == "D") {
        titulo = "[Documento]";
        mnuGeraDocumentos.Caption = "Gera Documento";
    } else {
        mnuGeraDocumentos.Visible = false;
        titulo = "[Consulta de Agrupamentos]";
    }
    BarraTitulo1.Caption = titulo;
    Caption = titulo;
}

void TolvanF01::Form_Load() {
    Protegido(EstiloErro::Critico, "Form Load - ", Name, [&](int& linha) {
        const Sessao& s = SessaoAtual();
        linha = 10;
        BarraTitulo1.Empresa = s.Empresa;
        BarraTitulo1.Operador = s.Operador;
        linha = 20;
        btnAlterar.Visible = false;
        btnVerLista.Visible = false;
        linha = 30;
        shContorno.Height = 7500;
        Height = 7485;
        linha = 40;
        mnuArquivo.Visible = false;
        mnuCaptura.Visible = false;
        linha = 50;
        AplicaModo();
        linha = 60;
        Width = shContorno.Width + 45;
        Height = shContorno.Height + 45;
        linha = 70;
        BarraTitulo1.Empresa = s.Empresa;
        BarraTitulo1.Operador = s.Operador;
        linha = 80;
        DefineMensagem("Tecle <ESC> para Sair");
        linha = 90;
        listouNaCarga_ = false;
        sbPreencheCombo();
        linha = 100;
        MontaRodape();
        linha = 110;
        mnuGeraDocumentos.Enabled = !s.Origem.empty();
        linha = 120;
        if (s.Origem == "F") mnuImprimirLista.Enabled = false;
        linha = 130;
        // Setting the search kind has just listed every grouping; a second
        // identical listing would only read them all again.
        if (!listouNaCarga_) fPesquisar3(resultado_);
        if (resultado_.substr(0, 2) != "00") MostraMensagem(resultado_, msg::Informacao, "AVISO");
        linha = 140;
        bttPesquisa.Enabled = cboPesquisa.Text() != Selecione;
        linha = 150;
        banco_ = std::make_unique<clsBancoDados>();
        bancoAberto_ = banco_->fcAbreBancoDadosVeltra(1);
        // Focus starts on the search kind.
        SetFocus(cboPesquisa);
    });
}

void TolvanF01::Form_Activate() {
    Protegido(EstiloErro::Log, "Form_Activate", Name, [&](int& linha) {
        linha = 10;
        LerAjuste(Ajuste::DescricaoAgrupamento);
        linha = 20;
        if (Normaliza(SessaoAtual().DescricaoAgrupamento) == "SIM") LerAjuste(Ajuste::QtdPosicoesAgrupamento);
    });
}

void TolvanF01::DefineMensagem(const std::string& texto) {
    CMensagem.Caption = texto;
    Protegido(EstiloErro::Log, "CMensagem_Change", Name, [&](int&) { MontaRodape(); });
}

void TolvanF01::MontaRodape() {
    sbMontaRodape(*this, TextoDataHoje(), CMensagem.Caption, "", "", "", LinhaSuporte(), "", "");
}

// ------------------------------------------------------------------- keys

void TolvanF01::Form_KeyDown(int& KeyCode, int Shift) {
    Protegido(EstiloErro::Log, "Form_KeyDown", Name, [&](int& linha) {
        const int k = KeyCode;
        KeyCode = 0;
        linha = 10;
        if (k == tecla::Esc || (k == tecla::Letra('S') && Shift == modificador::Ctrl)) {
            SessaoAtual().DadosRetorno = Valor("0");
            sbSair();
        } else if (Shift == 0 && k == tecla::F2) {
            linha = 20;
            VisualizarLista();
        } else if (Shift == 0 && k == tecla::F3) {
            linha = 30;
            sbPesquisaItens();
        } else if (Shift == 0 && k == tecla::F4) {
            linha = 40;
            sbImprimir();
        } else if (Shift == 0 && k == tecla::F11) {
            linha = 50;
            sbNovaPesquisa();
        } else if (k == tecla::Letra('G') && Shift == modificador::Ctrl && mnuGeraDocumentos.Visible) {
            linha = 60;
            sbGerarDocumento();
        } else if (k == tecla::Letra('C') && Shift == modificador::Ctrl && mnuCaptura.Visible) {
            linha = 70;
            Captura();
        } else {
            KeyCode = k; // not the screen's: the control gets it
        }
    });
}

void TolvanF01::Form_QueryUnload(int& Cancel, int UnloadMode) {
    // Only the screen's own ways out close it; the close box does not.
    if (UnloadMode == fechamento::MenuDeControle) Cancel = 1;
}

void TolvanF01::Form_Unload(int&) {
    banco_.reset();
    bancoAberto_ = false;
}

// --------------------------------------------------------------- commands

void TolvanF01::sbSair() {
    Protegido(EstiloErro::Log, "sbSair", Name, [&](int&) {
        DoEvents();
        Unload();
    });
}

void TolvanF01::Captura() {
    if (MSFGAgrupamento.Rows() > 1 && MSFGAgrupamento.Row() >= 1)
        CapturaCodigo(MSFGAgrupamento.TextMatrix(MSFGAgrupamento.Row(), 0));
}

void TolvanF01::CapturaCodigo(const std::string& codigo) {
    // The host gets a 32-bit number: a code with letters cannot go back, and
    // the operator is told why and how, instead of an unexpected error.
    int32_t numero = 0;
    if (!LeInteiro32(Valor(codigo), numero)) {
        MostraMensagem("O código do agrupamento " + Apara(codigo) +
                           " não é numérico e não pode ser capturado. Selecione um agrupamento de código "
                           "numérico e tecle <CTRL+C> ou dê um duplo clique.",
                       msg::Informacao, "AVISO");
        return;
    }
    SessaoAtual().DadosRetorno = Valor(codigo);
    sbSair();
}

void TolvanF01::sbNovaPesquisa() {
    Protegido(EstiloErro::Log, "sbNovaPesquisa", Name, [&](int& linha) {
        linha = 10;
        txtPesquisa.Text.clear();
        LNome.Caption.clear();
        DefineMensagem("");
        linha = 20;
        GridCabecalho();
        linha = 30;
        // A search text that is off (kind "Selecione...") cannot take the focus.
        if (txtPesquisa.Enabled)
            SetFocus(txtPesquisa);
        else
            SetFocus(cboPesquisa);
    });
}

void TolvanF01::VisualizarLista() {
    TolvanF02 lista;
    MostraModal(lista);
    // The code as stored: "000101" is found where its decimal text "101" is not.
    const std::string codigo = Troca().CodigoGravado;
    txtPesquisa.Text = codigo;
    if (cboPesquisa.ListIndex != 0) cboPesquisa.Seleciona(0);
    fPesquisar(resultado_);
    if (resultado_.substr(0, 2) != "00") {
        MostraMensagem(resultado_, msg::Informacao, "AVISO");
        return;
    }
    // A picked grouping is searched by its code, so the operator lands on it
    // with its items; a cancelled list leaves the listing in place.
    if (Apara(codigo).empty()) return;
    cboPesquisa.Seleciona(1);
    txtPesquisa.Text = codigo;
    sbPesquisaItens();
}

void TolvanF01::sbGerarDocumento() {
    if (auto acao = AcoesConsultaAtuais().GerarDocumento)
        acao(*this);
    else
        Indisponivel("Gerar Documentos");
}

void TolvanF01::sbImprimir() {
    if (auto acao = AcoesConsultaAtuais().Imprimir)
        acao(*this);
    else
        Indisponivel("Imprimir Lista");
}

// ----------------------------------------------------- groupings and search

void TolvanF01::ConfiguraGridAgrupamento() {
    Protegido(EstiloErro::Previsto, "ConfiguraGridAgrupamento", Name, [&](int& linha) {
        linha = 10;
        Grade& g = MSFGAgrupamento;
        g.DefineRows(1);
        g.DefineRow(0);
        g.DefineCols(3);
        g.FixedCols = 0;
        g.FixedRows = 1;
        g.Clear();
        nomes_.assign(1, std::string());
        g.DefineRow(0);
        g.DefineCol(0);
        linha = 20;
        const struct {
            const char* titulo;
            int largura;
        } colunas[] = {{"Código", 15}, {"Descrição", 40}, {"Status", 13}};
        for (int c = 0; c < 3; ++c) {
            g.DefineTextMatrix(0, c, colunas[c].titulo);
            g.DefineLarguraM(c, colunas[c].largura);
            g.DefineColAlignment(c, AlinhamentoGrade::EsquerdaTopo);
        }
    });
}

void TolvanF01::sbPreencheCombo() {
    Protegido(EstiloErro::Log, "sbPreencheCombo", Name, [&](int&) {
        cboPesquisa.Clear();
        cboPesquisa.AddItem(Selecione);
        cboPesquisa.AddItem("Código");
        cboPesquisa.AddItem("Descrição");
        cboPesquisa.Seleciona(0);
        txtPesquisa.Enabled = false;
    });
}

void TolvanF01::fPesquisar3(std::string& resultado) {
    ListaAgrupamentos(Listagem::Todas, resultado, "fPesquisar3");
}

void TolvanF01::fPesquisar2(std::string& resultado) {
    if (SessaoAtual().OrigemDocumento) {
        fPesquisar3(resultado);
        return;
    }
    ListaAgrupamentos(Listagem::TodasSemFiltro, resultado, "fPesquisar2");
}

void TolvanF01::fPesquisar(std::string& resultado) {
    ListaAgrupamentos(Listagem::ComEquivalencia, resultado, "fPesquisar");
}

void TolvanF01::ListaAgrupamentos(Listagem tipo, std::string& resultado, const char* procedimento) {
    Protegido(EstiloErro::Previsto, procedimento, Name, [&](int& linha) {
        const Sessao& s = SessaoAtual();
        linha = 10;
        resultado = "00";
        linha = 20;
        ConfiguraGridAgrupamento();
        GridCabecalho();
        linha = 30;
        const std::string empresa = TextoDecimal(s.Empresa);
        std::string sql;
        if (tipo == Listagem::ComEquivalencia) {
            sql = "Select T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome, T2.CodRef ";
            sql += " From TBMATAG T1, TBMATEQ T2 ";
            sql += "Where T1.Empresa = " + empresa;
            sql += " And  T1.Empresa = T2.Empresa ";
            sql += " And  T1.CodEquiv = T2.CodEquiv";
        } else {
            sql = "Select T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome ";
            sql += " From TBMATAG T1 ";
            sql += (tipo == Listagem::Todas ? " Where T1.Empresa = " : "Where T1.Empresa = ") + empresa;
        }
        if (tipo != Listagem::TodasSemFiltro && s.OrigemDocumento) sql += " and T1.STTR = '0'";
        sql += " And  T1.Codigo >= '0'";
        sql += tipo == Listagem::ComEquivalencia
                   ? " Group By T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome, T2.CodRef "
                   : " Group By T1.Codigo, T1.DscItem, T1.StTr, T1.CodItem, T1.Nome ";
        linha = 40;
        Comunica& k = ComunicaAtual();
        const int16_t cursor = CursorDoComando(sql);
        if (cursor == 0) {
            resultado = "99/Erro não Prévisto, " + k.Msg;
            return;
        }
        k.Dados = std::string();
        k.Transacao = "OPEN";
        ExecutaComunica();
        linha = 50;
        if (k.Status != status::Ok && k.Status != status::SemLinha)
            resultado = "99/Erro não Prévisto, " + k.Msg;
        linha = 60;
        // One row per grouping: the statement gives one per item, so only a
        // row whose code differs from the one before is read further. A code
        // in the very text of the row before is that code: it is not made
        // fixed-width again.
        std::string codigo, anterior, bruto, apoio;
        bool primeira = true;
        while (k.Status == status::Ok) {
            const std::string_view texto = TextoDe(k.Retorno[0], apoio);
            if (primeira || texto != bruto) {
                bruto.assign(texto);
                TextoFixoEm(codigo, texto, 20);
                if ((primeira || codigo != anterior) &&
                    (tipo != Listagem::ComEquivalencia || Val(TextoFixo(TextoDe(k.Retorno[3], apoio), 20)) > 0)) {
                    const bool inativo = CInt(k.Retorno[2]) != 0;
                    const std::string_view nome = TextoDe(k.Retorno[4], apoio);
                    const std::span<std::string> celulas = MSFGAgrupamento.NovaLinha();
                    celulas[0] = codigo;
                    TextoFixoEm(celulas[1], nome, 40);
                    celulas[2] = inativo ? "Inativo" : "Ativo";
                    nomes_.emplace_back(AparaVista(EsquerdaVista(nome, 100)));
                }
                primeira = false;
                anterior.swap(codigo);
            }
            k.Cursor = cursor;
            k.Transacao = "NEXT";
            ExecutaComunica();
        }
        linha = 70;
        k.Cursor = cursor;
        k.Transacao = "CLOSE";
        ExecutaComunica();
    });
}

void TolvanF01::LerCodigo() {
    Protegido(EstiloErro::Previsto, "LerCodigo", Name, [&](int& linha) {
        const Sessao& s = SessaoAtual();
        linha = 10;
        naoAchou_ = false;
        LNome.Caption.clear();
        const std::string tipo = cboPesquisa.Text();
        const std::string texto = Apara(txtPesquisa.Text);
        const std::string empresa = TextoDecimal(s.Empresa);
        std::string sql;
        linha = 20;
        if (tipo == "Código") {
            sql = "SELECT DISTINCT T1.CODIGO, T1.NOME, T1.STTR ";
            sql += " FROM TBMATAG T1";
            sql += " WHERE T1.EMPRESA = '" + empresa + "'";
            if (!texto.empty()) sql += " AND T1.CODIGO = '" + DobraAspas(texto) + "'";
            if (s.OrigemDocumento) sql += " AND T1.STTR = '0'";
        } else if (tipo == "Descrição") {
            linha = 30;
            sql = "SELECT DISTINCT T1.CODIGO, T1.NOME, T1.STTR ";
            sql += " FROM TBMATAG T1";
            sql += " WHERE EMPRESA = '" + empresa + "'";
            if (!texto.empty()) sql += "   AND NOME LIKE '%" + DobraAspas(texto) + "%'";
            if (s.OrigemDocumento) sql += " AND STTR = '0'";
            sql += " ORDER BY T1.CODIGO ASC";
        }
        linha = 40;
        size_t achados = 0;
        std::string nome, falha;
        bool falhou = false;
        if (!sql.empty()) {
            clsBancoDados temporario;
            clsBancoDados& bd = banco_ ? *banco_ : temporario;
            if (!banco_) temporario.fcAbreBancoDadosVeltra(1);
            ResultadoComando r = bd.fcExecutaComando(1, sql, false);
            linha = 50;
            if (r.situacao == status::Ok) {
                RecordSet& rs = r.rsDadosRetorno;
                for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
                    const std::string codigo = TextoFixo(CStr(rs.Fields("CODIGO").Value), 20);
                    nome = TextoFixo(CStr(rs.Fields("NOME").Value), 100);
                    const int16_t sttr = CInt(rs.Fields("StTr").Value);
                    MSFGAgrupamento.AddItem(codigo + "\t" + Apara(nome) + "\t" +
                                            (sttr == 0 ? "Ativo" : "Inativo"));
                    nomes_.push_back(Apara(nome));
                    ++achados;
                }
            } else {
                falhou = true;
                falha = r.mensagem;
            }
        }
        linha = 60;
        if (falhou) {
            naoAchou_ = true;
            MostraMensagem("Erro não previsto/Msg=" + falha, msg::Exclamacao, "Agrupamento");
        } else if (achados == 0) {
            naoAchou_ = true;
            LNome.Caption = "Inexistente";
        } else {
            // The first grouping found is the one whose items are shown, and
            // the one named beside the grid.
            MSFGAgrupamento.DefineRow(1);
            MSFGAgrupamento.DefineCol(0);
            LNome.Caption = nomes_.size() > 1 ? nomes_[1] : Apara(nome);
        }
    });
}

void TolvanF01::sbPesquisaItens() {
    Protegido(EstiloErro::Log, "sbPesquisaItens", Name, [&](int& linha) {
        linha = 10;
        ConfiguraGridAgrupamento();
        GridCabecalho();
        linha = 20;
        LerCodigo();
        linha = 30;
        if (!naoAchou_) {
            sbPesquisaProdutos();
            SetFocus(GCon1);
        }
    });
}

void TolvanF01::bttPesquisa_Click() {
    Protegido(EstiloErro::Log, "bttPesquisa_Click", Name, [&](int& linha) {
        linha = 10;
        sbPesquisaItens();
        linha = 20;
        if (resultado_.substr(0, 2) != "00") {
            MostraMensagem(resultado_, msg::Informacao, "AVISO");
        } else if (MSFGAgrupamento.Rows() < 2 || MSFGAgrupamento.Text().empty()) {
            MostraMensagem("Agrupamento Inexistente", msg::Informacao, "AVISO");
        }
    });
}

void TolvanF01::txtPesquisa_KeyDown(int& KeyCode, int) {
    Protegido(EstiloErro::Log, "txtPesquisa_KeyDown", Name, [&](int&) {
        if (KeyCode == tecla::Enter) {
            KeyCode = 0;
            bttPesquisa_Click();
        }
    });
}

void TolvanF01::cboPesquisa_Click() {
    Protegido(EstiloErro::Log, "cboPesquisa_Click", Name, [&](int& linha) {
        linha = 10;
        const bool selecione = cboPesquisa.Text() == Selecione;
        txtPesquisa.Enabled = !selecione;
        bttPesquisa.Enabled = !selecione;
        txtPesquisa.BackColor = selecione ? cores::CinzaClaro : cores::Branco;
        txtPesquisa.Text.clear();
        if (selecione) {
            linha = 20;
            GridCabecalho();
            fPesquisar2(resultado_);
            listouNaCarga_ = resultado_.starts_with("00");
        }
        linha = 30;
        switch (cboPesquisa.ListIndex) {
        case 1:
            lblTipoPesquisa.Caption = "Pesquisar por: Informe o Código do Agrupamento";
            break;
        case 2:
            lblTipoPesquisa.Caption = "Pesquisar por: Informe a Descrição do Agrupamento";
            break;
        default:
            lblTipoPesquisa.Caption = "Pesquisar por:";
            break;
        }
    });
}

void TolvanF01::MSFGAgrupamento_Click() {
    if (MSFGAgrupamento.Rows() > 1 && MSFGAgrupamento.Row() >= 1) sbPesquisaProdutos();
}

void TolvanF01::MSFGAgrupamento_DblClick() {
    Protegido(EstiloErro::Critico, "MSFGAgrupamento - ", Name, [&](int&) {
        const int r = MSFGAgrupamento.Row();
        if (MSFGAgrupamento.Rows() < 2 || r < 1) return;
        const std::string modo = SessaoAtual().OrigemTrim;
        if (modo == "P") {
            CapturaCodigo(Apara(MSFGAgrupamento.TextMatrix(r, 0)));
        } else if (modo.empty()) {
            auto manutencao = AcoesConsultaAtuais().Manutencao;
            if (!manutencao) {
                Indisponivel("Manutenção de Agrupamento");
                return;
            }
            const std::string nomeAntes = MSFGAgrupamento.TextMatrix(r, 1);
            manutencao(*this, MSFGAgrupamento.TextMatrix(r, 0), MSFGAgrupamento.TextMatrix(r, 2) == "Ativo");
            // A saved grouping comes back renamed in its row: the name beside
            // the grid follows it.
            if (MSFGAgrupamento.TextMatrix(r, 1) != nomeAntes && static_cast<size_t>(r) < nomes_.size())
                nomes_[r] = Apara(MSFGAgrupamento.TextMatrix(r, 1));
            sbPesquisaProdutos();
        }
    });
}

// ------------------------------------------------------------------ items

void TolvanF01::GridCabecalho() {
    Protegido(EstiloErro::Critico, "GridCabecalho - ", Name, [&](int& linha) {
        linha = 10;
        Grade& g = GCon1;
        g.DefineRows(1);
        g.DefineRow(0);
        g.DefineCols(12);
        g.FixedCols = 0;
        g.FixedRows = 1;
        g.Clear();
        g.DefineRow(0);
        linha = 20;
        const struct {
            const char* titulo;
            int largura;
            AlinhamentoGrade alinhamento;
        } colunas[] = {
            {"Opc", 0, AlinhamentoGrade::Geral},
            {"Descrição", 30, AlinhamentoGrade::EsquerdaBaixo},
            {"Situação", 12, AlinhamentoGrade::EsquerdaBaixo},
            {"Fornecedor", 12, AlinhamentoGrade::Geral},
            {"Qtd", 6, AlinhamentoGrade::Geral},
            {"Val Unit", 8, AlinhamentoGrade::Geral},
            {"Val Total", 8, AlinhamentoGrade::Geral},
            {"Embalagem", 10, AlinhamentoGrade::Geral},
            {"Equivalência", 11, AlinhamentoGrade::Geral},
            {"Produto", 11, AlinhamentoGrade::Geral},
            {"Referência", 15, AlinhamentoGrade::EsquerdaTopo},
            {"Tipo", 6, AlinhamentoGrade::Geral},
        };
        LTotais.Caption.clear();
        LDisponibilidade.Caption.clear();
        Troca().AgrupamentosDisponiveis.reset();
        disponibilidade_ = {};
        for (int c = 0; c < 12; ++c) {
            g.DefineCol(c);
            g.DefineText(colunas[c].titulo);
            if (c == 0) g.DefineLarguraM(c, 4);
            g.DefineLarguraM(c, colunas[c].largura);
            g.DefineColAlignment(c, colunas[c].alinhamento);
        }
    });
}

void TolvanF01::sbPesquisaProdutos() {
    Protegido(EstiloErro::Critico, "sbPesquisaProdutos - ", Name, [&](int& linha) {
        const Sessao& s = SessaoAtual();
        linha = 10;
        GCon1.Clear();
        GCon1.DefineRows(1);
        GridCabecalho();
        DoEvents();
        linha = 20;
        const std::string empresa = Apara(TextoDecimal(s.Empresa));
        const int r = MSFGAgrupamento.Rows() > 0 ? MSFGAgrupamento.Row() : 0;
        const std::string codigo = MSFGAgrupamento.Rows() > 0 ? Apara(MSFGAgrupamento.TextMatrix(r, 0)) : "";
        // The name beside the grid is always the grouping whose items load.
        if (r >= 1 && static_cast<size_t>(r) < nomes_.size()) LNome.Caption = nomes_[r];
        std::string sql;
        sql.reserve(900);
        sql += "SELECT DISTINCT ISNULL(T2.DscItem,'PRODUTO NÃO CADASTRADO PARA ESTA EMPRESA') AS DscItem , ";
        sql += " ISNULL(T3.DISPON, '0') AS DISPON, ";
        sql += " T1.RAZFORNEC , T1.QTD, T1.VALOR, ISNULL(T2.Embal, '') AS Embal, ";
        sql += " ISNULL(T2.CodItem, '') AS CodItem, ";
        sql += " ISNULL(T3.CODREF , '') AS CODREF, ";
        sql += " ISNULL(T3.CODEQUIV, '') AS CODEQUIV, ";
        sql += " ISNULL(T1.TIPO, '') AS TIPO";
        sql += " FROM TBMATAG T1";
        sql += " LEFT JOIN TBMAT T2 ON (T1.EMPRESA = T2.EMPRESA AND T1.CODITEM = T2.CODITEM)";
        sql +=
            " LEFT JOIN TBMATEQ T3 ON (T1.EMPRESA = T3.EMPRESA AND T1.CODITEM = T3.CODITEM AND T1.CODEQUIV = "
            "T3.CODEQUIV AND T3.TIPO = " +
            s.TipoPreco + ")";
        sql += " WHERE T1.EMPRESA  = " + empresa;
        sql += " AND T1.CODIGO = '" + DobraAspas(codigo) + "'";
        sql += " AND T1.EMPRESA = '" + empresa + "'";
        linha = 30;
        clsBancoDados bd;
        bd.fcAbreBancoDadosVeltra(1);
        ResultadoComando res = bd.fcExecutaComando(1, sql, false);
        DoEvents();
        linha = 40;
        if (Formata(Valor(res.situacao), "00") != "00") return;
        linha = 50;
        // The server looks up the products' stock while the rows are written.
        estoque::AntecipaSaldos(s.Empresa, codigo);
        GCon1.Clear();
        GridCabecalho();
        linha = 60;
        const std::string marca = s.Origem == "V" ? "*" : "";
        std::vector<std::string> equivalencias;
        RecordSet& rs = res.rsDadosRetorno;
        equivalencias.reserve(rs.RecordCount() + 1);
        GCon1.Reserva(static_cast<int>(rs.RecordCount()) + 1);
        const size_t cDsc = rs.Indice("DSCITEM"), cDispon = rs.Indice("DISPON"),
                     cForn = rs.Indice("RAZFORNEC"), cQtd = rs.Indice("QTD"), cValor = rs.Indice("VALOR"),
                     cEmbal = rs.Indice("Embal"), cRef = rs.Indice("CODREF"), cEquiv = rs.Indice("CodEquiv"),
                     cItem = rs.Indice("CodItem"), cTipo = rs.Indice("Tipo");
        std::string apoio;
        const auto texto = [&](size_t c) { return TextoDe(rs.ValorNa(c), apoio); };
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
            const double qtd = CDbl(rs.ValorNa(cQtd));
            const double valor = CDbl(rs.ValorNa(cValor));
            linha = 70;
            // mark, description, availability, supplier (40 of its 60), quantity, unit value, total,
            // packaging, equivalence, product, reference, price type: each written in place into
            // the new row's cells, which keep the storage of the rows the last load cut.
            const std::span<std::string> celulas = GCon1.NovaLinha();
            celulas[ColMarca] = marca;
            celulas[ColDescricao] = AparaVista(EsquerdaVista(AparaVista(texto(cDsc)), 100));
            celulas[ColSituacao] = Situacao(DisponDe(rs.ValorNa(cDispon)));
            TextoFixoEm(celulas[ColFornecedor], texto(cForn), 40);
            celulas[ColQtd] = CStr(Valor(qtd));
            celulas[ColValUnit] = FormataMoeda(valor);
            celulas[ColValTotal] = FormataMoeda(valor * qtd);
            TextoFixoEm(celulas[ColEmbalagem], texto(cEmbal), 2);
            TextoFixoEm(celulas[ColEquivalencia], texto(cEquiv), 20);
            TextoFixoEm(celulas[ColProduto], texto(cItem), 20);
            TextoFixoEm(celulas[ColReferencia], texto(cRef), 20);
            celulas[ColTipo] = TextoDecimal(TipoDe(rs.ValorNa(cTipo)));
            equivalencias.push_back(celulas[ColEquivalencia]);
            linha = 60;
        }
        equivalencias.emplace_back();
        linha = 80;
        Troca().CodEquivItens = std::move(equivalencias);
        linha = 90;
        std::string erro;
        saldos_ = estoque::LeSaldos(s.Empresa, codigo, erro).value_or(estoque::SaldoDosProdutos{});
        AtualizaTotais();
    });
}

void TolvanF01::sbMarcarTodosDaTela() {
    Protegido(EstiloErro::Log, "sbMarcarTodosDaTela", Name, [&](int&) {
        for (int r = 1; r < GCon1.Rows(); ++r)
            GCon1.DefineTextMatrix(r, ColMarca, "*");
        CalculaTotal();
    });
}

void TolvanF01::sbDesmarcarTodosDaTela() {
    Protegido(EstiloErro::Log, "sbDesmarcarTodosDaTela", Name, [&](int&) {
        for (int r = 1; r < GCon1.Rows(); ++r)
            GCon1.DefineTextMatrix(r, ColMarca, "");
        if (GCon1.Rows() > 1) GCon1.DefineRow(1);
        CalculaTotal();
    });
}

void TolvanF01::sbMarcarSelecionado() {
    Protegido(EstiloErro::Log, "sbMarcarSelecionado", Name, [&](int& linha) {
        linha = 10;
        if (GCon1.Cols() <= ColEmbalagem || GCon1.Rows() == 0) return;
        GCon1.DefineCol(ColEmbalagem);
        if (Apara(GCon1.Text()).empty()) return;
        if (GCon1.Row() == 0) return;
        linha = 20;
        GCon1.DefineCol(ColMarca);
        GCon1.DefineText("*");
        CalculaTotal();
    });
}

void TolvanF01::CalculaTotal() {
    Protegido(EstiloErro::Previsto, "CalculaTotal", Name, [&](int&) {
        AtualizaTotais();
        if (GCon1.Rows() > 1) GCon1.DefineRow(1);
    });
}

void TolvanF01::AtualizaTotais() {
    AtualizaDisponibilidade();
    const int linhas = GCon1.Rows() - 1;
    if (linhas < 1 || GCon1.Cols() <= ColValTotal) {
        LTotais.Caption.clear();
        return;
    }
    int marcados = 0;
    double total = 0;
    for (int r = 1; r <= linhas; ++r) {
        if (GCon1.TextMatrix(r, ColMarca) != "*") continue;
        ++marcados;
        total += ValRegional(GCon1.TextMatrix(r, ColValTotal));
    }
    LTotais.Caption = TextoDecimal(marcados) + " de " + TextoDecimal(linhas) +
                      (linhas == 1 ? " item marcado" : " itens marcados") + ", total " + FormataMoeda(total);
}

void TolvanF01::AtualizaDisponibilidade() {
    std::optional<int64_t>& disponiveis = Troca().AgrupamentosDisponiveis;
    const int linhas = GCon1.Rows() - 1;
    if (linhas < 1 || GCon1.Cols() <= ColProduto) {
        LDisponibilidade.Caption.clear();
        disponiveis.reset();
        disponibilidade_ = {};
        return;
    }
    bool algumaMarcada = false;
    for (int r = 1; r <= linhas && !algumaMarcada; ++r)
        algumaMarcada = GCon1.TextMatrix(r, ColMarca) == "*";
    std::vector<estoque::Necessidade> itens;
    itens.reserve(static_cast<size_t>(linhas));
    for (int r = 1; r <= linhas; ++r) {
        if (algumaMarcada && GCon1.TextMatrix(r, ColMarca) != "*") continue;
        itens.push_back({GCon1.TextMatrix(r, ColProduto), GCon1.TextMatrix(r, ColDescricao),
                         TextoParaNumero(GCon1.TextMatrix(r, ColQtd))});
    }
    disponibilidade_ = estoque::Calcula(itens, saldos_);
    LDisponibilidade.Caption = estoque::TextoDisponibilidade(disponibilidade_);
    disponiveis = disponibilidade_.agrupamentos;
}

void TolvanF01::MnuAltQtd_Click() {
    Protegido(EstiloErro::Log, "MnuAltQtd_Click", Name, [&](int& linha) {
        linha = 10;
        if (GCon1.Rows() < 2) {
            SetFocus(txtPesquisa.Enabled ? static_cast<Controle&>(txtPesquisa) : cboPesquisa);
            return;
        }
        linha = 20;
        VariaveisTroca& t = Troca();
        const int r = GCon1.Row() >= 1 ? GCon1.Row() : 1;
        t.LinhaAlterar = static_cast<int16_t>(r);
        t.DescricaoAlterar = GCon1.TextMatrix(r, ColDescricao);
        t.FornecedorAlterar = GCon1.TextMatrix(r, ColFornecedor);
        t.QtdAlterar = ValRegional(Formata(Valor(ValRegional(GCon1.TextMatrix(r, ColQtd))), formatos::Preco));
        t.PrecoAlterar =
            ValRegional(Formata(Valor(ValRegional(GCon1.TextMatrix(r, ColValUnit))), formatos::Preco));
        linha = 30;
        TolvanF03 dialogo;
        MostraModal(dialogo);
        linha = 40;
        if (t.AlteracaoConfirmada) {
            GCon1.DefineRow(t.LinhaAlterar);
            GCon1.DefineTextMatrix(t.LinhaAlterar, ColQtd, CStr(Valor(t.QtdAlterar)));
            GCon1.DefineTextMatrix(t.LinhaAlterar, ColValUnit, Formata(t.PrecoAlterar, formatos::Preco));
            GCon1.DefineTextMatrix(t.LinhaAlterar, ColValTotal,
                                   Formata(t.PrecoAlterar * t.QtdAlterar, formatos::Preco));
            CalculaTotal();
        }
        linha = 50;
        GCon1.DefineCol(ColMarca);
    });
}

} // namespace ztolvan
