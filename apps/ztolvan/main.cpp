// ztolvan: the host command line. It stands in for the suite's host screens:
// creates and seeds databases, calls ZProcessa with any of its arguments and
// generates documents and prints quotations without a display, through the
// same screen model.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <unistd.h>
#include <sstream>

#include "common/conversao.h"
#include "componente/componente.h"
#include "componente/gerar.h"
#include "common/explicacao.h"
#include "common/mensagens.h"
#include "common/portas.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/config_banco.h"
#include "data/despachante.h"
#include "data/schema/esquema.h"
#include "data/sqlite/conector_sqlite.h"
#include "entry/sessao.h"
#include "generation/cotacao/cotacao.h"
#include "generation/geracao.h"
#include "generation/linhas_geradas.h"
#include "componente/saida.h"
#include "screens/auxiliary/tolvanf03.h"
#include "screens/auxiliary/tolvanf05.h"
#include "screens/consultation/tolvanf01.h"
#include "screens/janelas.h"
#include "ztolvan/consultalista.h"

using namespace ztolvan;

namespace {

// Exit codes (README lists them).
constexpr int SaidaOk = 0;
constexpr int SaidaBanco = 2;
constexpr int SaidaInterna = 3;
constexpr int SaidaNadaGerado = 4;
constexpr int SaidaLinhaInvalida = 5;
constexpr int SaidaNaoImpresso = 6;

struct Conexao {
    std::string db, servidor, banco, usuario, senhaBanco;

    void Opcoes(CLI::App* app) {
        app->add_option("--db", db, "SQLite database file (the desktop-file kind)");
        app->add_option("--servidor", servidor, "PostgreSQL host[:port]");
        app->add_option("--banco", banco, "PostgreSQL database");
        app->add_option("--usuario", usuario, "PostgreSQL user");
        app->add_option("--senha-banco", senhaBanco, "PostgreSQL password");
    }
    // What the command line says stands in for the settings file.
    void Fixa() const {
        if (!db.empty())
            ConfigBanco::DefineFixa(ConfigBanco{"ACCESS", db, "", ""});
        else if (!servidor.empty())
            ConfigBanco::DefineFixa(ConfigBanco{servidor, banco, usuario, senhaBanco});
    }
};

// Messages go to stderr (a line break where the message has one) and are
// kept in order; yes/no questions get the answer the operator chose.
std::shared_ptr<MensagensRespondidas> MensagensDoTerminal(bool sim) {
    return std::make_shared<MensagensRespondidas>(sim, [](const MensagemMostrada& m) {
        std::string t = m.Texto;
        for (char& ch : t)
            if (ch == '\r') ch = '\n';
        std::fprintf(stderr, "[%s] %s%s%s\n", m.Titulo.c_str(), t.c_str(), m.Detalhe.empty() ? "" : " | ",
                     m.Detalhe.c_str());
    });
}

bool Conecta(const Conexao& c) {
    c.Fixa();
    std::string s, b, u, p;
    int16_t silencioso = 0;
    AbreConexao(s, b, u, p, silencioso);
    return ComunicaAtual().Status == status::Ok;
}

int Init(const Conexao& c) {
    if (!c.db.empty()) {
        std::string msg;
        if (!ConectorSqlite::CriaArquivo(c.db, msg)) {
            std::fprintf(stderr, "ztolvan init: %s\n", msg.c_str());
            return SaidaBanco;
        }
    }
    if (!Conecta(c)) return SaidaBanco;
    std::string msg;
    if (!CriaEsquema(msg)) {
        std::fprintf(stderr, "ztolvan init: %s\n", msg.c_str());
        return SaidaBanco;
    }
    FechaConexao();
    std::printf("esquema criado\n");
    return SaidaOk;
}

int Seed(const Conexao& c) {
    if (!Conecta(c)) return SaidaBanco;
    std::string msg;
    if (!SemeiaDemo(msg)) {
        std::fprintf(stderr, "ztolvan seed: %s\n", msg.c_str());
        return SaidaBanco;
    }
    FechaConexao();
    std::printf("dados de demonstração gravados\n");
    return SaidaOk;
}

// A statement through the dispatcher, the way the screens run theirs:
// PREPARE, OPEN, NEXT until "23", CLOSE; each step and row printed.
int Consulta(const Conexao& c, const std::string& sql) {
    if (!Conecta(c)) return SaidaBanco;
    Comunica& k = ComunicaAtual();
    PreparaComando(sql);
    std::printf("PREPARE: %s cursor %d\n", k.Status.c_str(), k.Cursor);
    if (k.Status != status::Ok) {
        std::fprintf(stderr, "ztolvan consulta: %s\n", k.Msg.c_str());
        return SaidaBanco;
    }
    const int16_t cursor = k.Cursor;
    k.Transacao = "OPEN";
    k.Dados = std::string();
    ExecutaComunica();
    std::printf("OPEN: %s\n", k.Status.c_str());
    int linhas = 0;
    while (k.Status == status::Ok) {
        std::string linha;
        for (size_t i = 0; i < k.Retorno.tamanho(); ++i)
            linha += (i ? "\t" : "") + AparaDireita(CStr(k.Retorno[i]));
        std::printf("%s\n", linha.c_str());
        ++linhas;
        k.Transacao = "NEXT";
        ExecutaComunica();
    }
    const std::string fim = k.Status, msgFim = k.Msg;
    k.Transacao = "CLOSE";
    k.Cursor = cursor;
    ExecutaComunica();
    std::printf("NEXT: %s after %d rows; CLOSE: %s\n", fim.c_str(), linhas, k.Status.c_str());
    if (fim != status::SemLinha) {
        std::fprintf(stderr, "ztolvan consulta: %s\n", msgFim.c_str());
        return SaidaBanco;
    }
    FechaConexao();
    return SaidaOk;
}

struct ArgumentosProcessa {
    int empresa = 1;
    std::string operador = "DEMO", senha, origem = "V", dadosVendas;
    int opcao = 0, numdoc = 0, tpmov = 0;
    std::optional<int> tipoPreco;
    bool inativos = false, modoCaptura = false, json = false, mostrarSessao = false;
    std::string resposta = "sim";
};

Valor ListaDeDados(const std::string& texto) {
    Valor::Lista l;
    std::stringstream ss(texto);
    std::string item;
    while (std::getline(ss, item, ',')) {
        // Whole numbers go as numbers, the rest as texts, as a host would pass them.
        char* fim = nullptr;
        long long n = std::strtoll(item.c_str(), &fim, 10);
        if (!item.empty() && fim && *fim == '\0')
            l.emplace_back(n);
        else
            l.emplace_back(item);
    }
    return Valor(std::move(l));
}

int Processa(const Conexao& c, const ArgumentosProcessa& a) {
    PortasAtuais().mensagens = MensagensDoTerminal(Normaliza(a.resposta) != "NAO");
    // --opcao 1 opens the real screens when a display can be reached.
    InstalaComponente();
    c.Fixa();
    consultalista componente;
    if (ComunicaAtual().Status != status::Ok) return SaidaBanco;
    int16_t empresa = static_cast<int16_t>(a.empresa), opcao = static_cast<int16_t>(a.opcao),
            tpmov = static_cast<int16_t>(a.tpmov), statusret = 0, zstatus = 0;
    int32_t codigo = 0, numdoc = a.numdoc;
    std::string operador = a.operador, senha = a.senha, origem = a.origem, mens;
    Valor dados = a.dadosVendas.empty() ? Valor() : ListaDeDados(a.dadosVendas);
    int16_t tipo = static_cast<int16_t>(a.tipoPreco.value_or(0));
    bool inativos = a.inativos, captura = a.modoCaptura;
    componente.ZProcessa(empresa, operador, senha, opcao, codigo, origem, numdoc, tpmov, statusret, zstatus,
                         mens, &dados, a.tipoPreco ? &tipo : nullptr, &inativos, &captura);
    Resultado r{codigo, statusret, zstatus, mens, dados, a.mostrarSessao ? &SessaoAtual() : nullptr};
    std::cout << (a.json ? ComoJson(r) : ComoTexto(r));
    return SaidaOk;
}

struct ArgumentosGera {
    int empresa = 1, numdoc = 0, tpmov = 0, multiplicador = 1;
    std::string operador = "DEMO", origem, dadosVendas, agrupamento, itens;
    std::optional<int> tipoPreco;
    std::vector<std::string> quantidades;
    std::string resposta = "nao";
    bool json = false, simular = false;
};

// Generation without a display, through the library's driver; a terminal
// sees a long run's progress on one line of stderr.
int Gera(const Conexao& c, const ArgumentosGera& a) {
    auto mensagens = MensagensDoTerminal(Normaliza(a.resposta) == "SIM");
    PortasAtuais().mensagens = mensagens;
    c.Fixa();
    consultalista componente;
    if (ComunicaAtual().Status != status::Ok) return SaidaBanco;
    PedidoGeracao p;
    p.empresa = static_cast<int16_t>(a.empresa);
    p.tpmov = static_cast<int16_t>(a.tpmov);
    p.numdoc = a.numdoc;
    p.operador = a.operador;
    p.origem = a.origem;
    p.agrupamento = a.agrupamento;
    p.dados = a.dadosVendas.empty() ? Valor() : ListaDeDados(a.dadosVendas);
    if (a.tipoPreco) p.tipoPreco = static_cast<int16_t>(*a.tipoPreco);
    p.itens = a.itens;
    p.quantidades = a.quantidades;
    p.multiplicador = a.multiplicador;
    p.simular = a.simular;
    p.explicar = a.json;
    bool andamentoMostrado = false;
    std::function<void(int, int)> andamento;
    if (isatty(STDERR_FILENO))
        andamento = [&](int feitos, int marcados) {
            andamentoMostrado = true;
            std::fprintf(stderr, "\r%s", TextoAndamento(feitos, marcados).c_str());
        };
    const RespostaGeracao r = GeraSemTela(componente, p, mensagens, std::move(andamento));
    if (andamentoMostrado) std::fputc('\n', stderr);
    switch (r.fim) {
    case RespostaGeracao::Fim::Banco:
        std::fprintf(stderr, "ztolvan gerar: %s\n", r.erro.c_str());
        return SaidaBanco;
    case RespostaGeracao::Fim::LinhaInvalida:
        std::fprintf(stderr, "ztolvan gerar: %s\n", r.erro.c_str());
        return SaidaLinhaInvalida;
    default:
        break;
    }
    std::cout << (a.json ? RespostaComoJson(r) : RespostaComoTexto(r));
    return r.fim == RespostaGeracao::Fim::Gerado ? SaidaOk : SaidaNadaGerado;
}

struct ArgumentosCotacao {
    int empresa = 1;
    std::string operador = "DEMO", agrupamento, itens = "todos", titulo, rodape, pdf;
    std::optional<int> tipoPreco;
};

// A subcommand that works on the consultation screen's model without a
// display: ZProcessa fills the context of a company, an operator and the
// price type (no screen, no document), the screen finds the grouping by code
// and marks 'itens', then 'acao' works on it (0, or an exit code with the
// reason in 'erro'). The exit code, the reason printed under 'nome'.
struct PedidoNaConsulta {
    const char* nome;
    int empresa;
    std::string operador, agrupamento, itens;
    std::optional<int> tipoPreco;
};

int NaConsulta(const Conexao& c, const PedidoNaConsulta& p,
               const std::function<int(TolvanF01&, std::string& erro)>& acao) {
    auto janelas = std::make_shared<JanelasModelo>();
    PortasAtuais().mensagens = MensagensDoTerminal(true);
    PortasAtuais().telas = janelas;
    c.Fixa();
    consultalista componente;
    if (ComunicaAtual().Status != status::Ok) return SaidaBanco;
    int16_t empresa = static_cast<int16_t>(p.empresa), opcao = 0, tpmov = 0, statusret = 0, zstatus = 0;
    int32_t codigo = 0, numdoc = 0;
    std::string operador = p.operador, senha, origem, mens;
    int16_t tipo = static_cast<int16_t>(p.tipoPreco.value_or(0));
    bool inativos = false, captura = false;
    componente.ZProcessa(empresa, operador, senha, opcao, codigo, origem, numdoc, tpmov, statusret, zstatus, mens,
                         nullptr, p.tipoPreco ? &tipo : nullptr, &inativos, &captura);

    int saida = SaidaOk;
    std::string erro;
    janelas->AoMostrar("TolvanF01", [&](Tela& t) {
        auto& f = static_cast<TolvanF01&>(t);
        if (BuscaAgrupamento(f, p.agrupamento) == 0) {
            erro = "agrupamento '" + p.agrupamento + "' não encontrado ou sem itens";
            saida = SaidaNadaGerado;
        } else if (!AplicaMarcas(f, p.itens, erro)) {
            saida = SaidaLinhaInvalida;
        } else {
            saida = acao(f, erro);
        }
        f.Unload();
    });
    TolvanF01 tela;
    MostraModal(tela);
    if (saida != SaidaOk) std::fprintf(stderr, "ztolvan %s: %s\n", p.nome, erro.c_str());
    return saida;
}

struct ArgumentosDisponibilidade {
    int empresa = 1;
    std::string operador = "DEMO", agrupamento, itens;
    std::optional<int> tipoPreco;
    bool json = false;
};

// The stock count, the one the screen shows for the rows asked.
int Disponibilidade(const Conexao& c, const ArgumentosDisponibilidade& a) {
    std::string texto;
    const int saida = NaConsulta(c, {"disponibilidade", a.empresa, a.operador, a.agrupamento, a.itens, a.tipoPreco},
                                 [&](TolvanF01& f, std::string&) {
                                     texto = a.json ? ComoJson(f.Disponibilidade())
                                                    : ComoTexto(f.Disponibilidade());
                                     return SaidaOk;
                                 });
    if (saida == SaidaOk) std::fputs(texto.c_str(), stdout);
    return saida;
}

int MarcadasNaGrade(const Grade& g) {
    int n = 0;
    for (int r = 1; r < g.Rows(); ++r)
        n += Apara(g.TextMatrix(r, TolvanF01::ColMarca)) == "*";
    return n;
}

// The quotation: the layout behind the screen's print command writes the
// marked items into the PDF.
int Cota(const Conexao& c, const ArgumentosCotacao& a) {
    const std::shared_ptr<PortaImpressora> impressora = NovaImpressoraPdf(a.pdf);
    if (!impressora) {
        std::fprintf(stderr, "ztolvan cotacao: no PDF printer here (the screens module, libztolvan-telas, "
                             "is not installed or Qt cannot start)\n");
        return SaidaInterna;
    }
    int marcadas = 0;
    const int saida = NaConsulta(c, {"cotacao", a.empresa, a.operador, a.agrupamento, a.itens, a.tipoPreco},
                                 [&](TolvanF01& f, std::string& erro) {
                                     if ((marcadas = MarcadasNaGrade(f.GCon1)) == 0) {
                                         erro = "nenhum item marcado";
                                         return SaidaNadaGerado;
                                     }
                                     if (!ImprimeCotacao(*impressora, f, a.titulo, a.rodape)) {
                                         erro = "a cotação não foi impressa";
                                         return SaidaNaoImpresso;
                                     }
                                     return SaidaOk;
                                 });
    if (saida != SaidaOk) return saida;
    std::printf("Cotação de %s com %d itens enviada para %s.\n", a.agrupamento.c_str(), marcadas,
                impressora->Destino().c_str());
    return SaidaOk;
}

// The options every subcommand on a grouping takes.
void OpcoesDoAgrupamento(CLI::App* sub, int& empresa, std::string& operador, std::string& agrupamento,
                         std::optional<int>& tipoPreco) {
    sub->add_option("--empresa", empresa, "zEmpresa")->required();
    sub->add_option("--operador", operador, "zoperador")->required();
    sub->add_option("--agrupamento", agrupamento, "grouping code, searched as the operator does")->required();
    sub->add_option("--tipo-preco", tipoPreco, "ztipodepreco (omitted when not given)");
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app{
        "ztolvan: the product-groupings component of the Veltra suite, driven from the command line"};
    app.require_subcommand(1);
    app.set_version_flag("--version", consultalista::Versao());

    Conexao conexao;
    auto* init = app.add_subcommand("init", "create the schema (a new SQLite file with --db)");
    conexao.Opcoes(init);
    auto* seed = app.add_subcommand("seed", "write the demo data");
    Conexao conexaoSeed;
    conexaoSeed.Opcoes(seed);

    Conexao conexaoConsulta;
    std::string sql;
    auto* consulta =
        app.add_subcommand("consulta", "run a statement through the dispatcher and print its rows");
    conexaoConsulta.Opcoes(consulta);
    consulta->add_option("sql", sql, "the statement")->required();

    ArgumentosProcessa a;
    Conexao conexaoProc;
    auto* proc = app.add_subcommand("processa", "call ZProcessa and print what comes back");
    conexaoProc.Opcoes(proc);
    proc->add_option("--empresa", a.empresa, "zEmpresa")->capture_default_str();
    proc->add_option("--operador", a.operador, "zoperador")->capture_default_str();
    proc->add_option("--senha", a.senha, "Zsenha (accepted, not used)");
    proc->add_option("--opcao", a.opcao, "zopcao: 1 opens the screens")->capture_default_str();
    proc->add_option("--origem", a.origem, "Zorigem: V, D, C, P, F or other")->capture_default_str();
    proc->add_option("--numdoc", a.numdoc, "Znumdoc");
    proc->add_option("--tpmov", a.tpmov, "Ztpmov");
    proc->add_option("--dados-vendas", a.dadosVendas, "ZDadosVendas, comma-separated (V/D: 7 values, C: 2)");
    proc->add_option("--tipo-preco", a.tipoPreco, "ztipodepreco (omitted when not given)");
    proc->add_flag("--inativos", a.inativos, "zInativos");
    proc->add_flag("--modo-captura", a.modoCaptura, "zModoCaptura");
    proc->add_option("--resposta", a.resposta, "answer to yes/no questions: sim or nao")
        ->capture_default_str();
    proc->add_flag("--json", a.json, "print as JSON");
    proc->add_flag("--mostrar-sessao", a.mostrarSessao, "also print Sessao after the call");

    ArgumentosGera g;
    Conexao conexaoGera;
    auto* gera =
        app.add_subcommand("gerar", "generate the marked items of a grouping into the open document");
    conexaoGera.Opcoes(gera);
    gera->add_option("--empresa", g.empresa, "zEmpresa")->required();
    gera->add_option("--operador", g.operador, "zoperador")->required();
    gera->add_option("--origem", g.origem, "V sales order, C purchase order, D store document")
        ->required()
        ->check(CLI::IsMember({"V", "C", "D"}));
    gera->add_option("--numdoc", g.numdoc, "Znumdoc: the open document")->required();
    gera->add_option("--tpmov", g.tpmov, "Ztpmov (store documents)");
    gera->add_option("--dados-vendas", g.dadosVendas, "ZDadosVendas, comma-separated (V/D: 7 values, C: 2)");
    gera->add_option("--tipo-preco", g.tipoPreco, "ztipodepreco (omitted when not given)");
    gera->add_option("--agrupamento", g.agrupamento, "grouping code, searched as the operator does")
        ->required();
    gera->add_option("--itens", g.itens, "todos, nenhum or data rows 1,3,5 (default: the origin's marks)");
    gera->add_option("--quantidade", g.quantidades, "ROW=QTD through the quantity dialog (repeatable)");
    gera->add_option("--multiplicador", g.multiplicador, "answer to the multiplier dialog")
        ->capture_default_str();
    gera->add_option("--resposta", g.resposta, "answer to yes/no questions: sim or nao")
        ->capture_default_str();
    gera->add_flag("--json", g.json, "print as JSON");
    gera->add_flag("--simular", g.simular,
                   "preview: the same generation, questions and messages, nothing kept in the database");

    ArgumentosCotacao q;
    Conexao conexaoCota;
    auto* cota = app.add_subcommand("cotacao", "print a grouping's quotation into a PDF file");
    conexaoCota.Opcoes(cota);
    OpcoesDoAgrupamento(cota, q.empresa, q.operador, q.agrupamento, q.tipoPreco);
    cota->add_option("--itens", q.itens, "todos or data rows 1,3,5")->capture_default_str();
    cota->add_option("--titulo", q.titulo, "the report's title");
    cota->add_option("--rodape", q.rodape, "the footer message");
    cota->add_option("--pdf", q.pdf, "the PDF file written")->required();

    ArgumentosDisponibilidade dsp;
    Conexao conexaoDisp;
    auto* disp =
        app.add_subcommand("disponibilidade", "how many whole groupings the free stock supplies, item by item");
    conexaoDisp.Opcoes(disp);
    OpcoesDoAgrupamento(disp, dsp.empresa, dsp.operador, dsp.agrupamento, dsp.tipoPreco);
    disp->add_option("--itens", dsp.itens, "data rows 1,3,5 counted (default: all)");
    disp->add_flag("--json", dsp.json, "print as JSON");

    CLI11_PARSE(app, argc, argv);
    try {
        if (*init) return Init(conexao);
        if (*seed) return Seed(conexaoSeed);
        if (*proc) return Processa(conexaoProc, a);
        if (*gera) return Gera(conexaoGera, g);
        if (*cota) return Cota(conexaoCota, q);
        if (*disp) return Disponibilidade(conexaoDisp, dsp);
        if (*consulta) return Consulta(conexaoConsulta, sql);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "ztolvan: %s\n", e.what());
        return SaidaInterna;
    }
    return SaidaOk;
}
