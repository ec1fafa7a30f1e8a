#include "data/despachante.h"

#include "common/armazem_maquina.h"
#include "common/contexto.h"
#include "common/mensagens.h"
#include "common/texto.h"
#include "data/config_banco.h"
#include "data/postgres/conector_postgres.h"
#include "data/sqlite/conector_sqlite.h"

namespace ztolvan {
namespace {

struct EstadoConexao {
    Comunica comunica;
    std::unique_ptr<ConectorBD> conector;
};

EstadoConexao& Estado() { return Contexto::Atual().Parte<EstadoConexao>(); }

// The machine-wide store's value, or empty.
std::string DoArmazem(const char* nome) {
    int16_t achou = 0;
    Valor v = LerRegistro(RaizMaquina, ChaveVeltra, nome, Valor(), achou);
    return v.eTexto() ? v.texto() : std::string();
}

bool Falha(Comunica& c, const std::string& msg) {
    c.Status = status::Falha;
    c.Msg = msg;
    return false;
}

// Steps 1 and 2: where the server and the database come from.
bool ResolveEntradas(std::string& Servidor, std::string& Banco, std::string& Usuario, std::string& Senha,
                     Comunica& c) {
    if (auto cfg = ConfigBanco::Le()) {
        Servidor = Apara(Servidor).empty() ? cfg->Servidor : Apara(Servidor);
        Banco = Apara(Banco).empty() ? cfg->Banco : Apara(Banco);
        Usuario = cfg->USUARIO;
        Senha = cfg->Senha;
        return true;
    }
    Servidor = Apara(Servidor);
    if (Servidor.empty()) Servidor = DoArmazem("servidor");
    if (Apara(Servidor).empty()) return Falha(c, "Entrada do Servidor Inválida");
    Banco = Apara(Banco);
    if (Banco.empty()) Banco = DoArmazem("banco");
    if (Apara(Banco).empty()) return Falha(c, "Entrada do Banco Inválida");
    return true;
}

void Envia(Comunica& c) {
    ConectorBD* k = Estado().conector.get();
    if (!k) {
        c.Status = status::Falha;
        c.Msg = "Sem conexão com o banco de dados";
        c.Retorno = std::string();
        return;
    }
    k->Processa(c.Conexao, c.Transacao, c.Cursor, c.Status, c.Msg, c.Dados, c.Retorno);
}

} // namespace

Comunica& ComunicaAtual() { return Estado().comunica; }
ConectorBD* ConectorAtual() { return Estado().conector.get(); }
void DefineConector(std::unique_ptr<ConectorBD> c) { Estado().conector = std::move(c); }

bool EhServidorArquivo(const std::string& Servidor) { return Normaliza(Servidor) == "ACCESS"; }

std::unique_ptr<ConectorBD> CriaConector(const std::string& Servidor) {
    if (EhServidorArquivo(Servidor)) return std::make_unique<ConectorSqlite>();
    return std::make_unique<ConectorPostgres>();
}

void AbreConexao(std::string& Servidor, std::string& Banco, std::string& Usuario, std::string& Senha,
                 int16_t& Silencioso) {
    EstadoConexao& e = Estado();
    Comunica& c = e.comunica;
    c.Status = status::Ok;
    c.Msg.clear();
    bool ok = ResolveEntradas(Servidor, Banco, Usuario, Senha, c);
    if (ok && !e.conector) {
        const bool arquivo = EhServidorArquivo(Servidor);
        try {
            e.conector = CriaConector(Servidor);
        } catch (const std::exception& ex) {
            ok = Falha(c, std::string(arquivo ? "Erro BDARQV - " : "Erro BDSERV - ") + ex.what());
        }
    }
    if (ok) e.conector->ZConnectOpen(Servidor, Banco, Usuario, Senha, c.Conexao, c.Status, c.Msg);
    if (c.Status != status::Ok && Silencioso == 0)
        MostraMensagem(c.Status + " - " + c.Msg, msg::Critico, "Veltra");
}

void PreparaComando(const std::string& Texto) {
    Comunica& c = ComunicaAtual();
    c.Transacao = "PREPARE";
    c.Dados = Texto;
    c.Cursor = 0;
    Envia(c);
}

void ExecutaComunica() {
    // The connector empties Retorno on every call that brings no row: a
    // stale row never survives a failed one.
    Envia(ComunicaAtual());
}

void FechaConexao() {
    try {
        EstadoConexao& e = Estado();
        if (e.conector) e.conector->ZConnectClose(e.comunica.Conexao);
    } catch (...) {
    }
}

} // namespace ztolvan
