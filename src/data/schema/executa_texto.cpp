#include "data/schema/executa_texto.h"

#include "data/comunica.h"
#include "data/despachante.h"

namespace ztolvan {
namespace {

bool Resultado(const std::string& passo, std::string& msg) {
    const Comunica& c = ComunicaAtual();
    if (c.Status == status::Ok) return true;
    msg = passo + ": " + c.Status + " - " + c.Msg;
    return false;
}

// The first line of a statement, enough to say which one failed.
std::string Resumo(const std::string& texto) { return texto.substr(0, texto.find('(')); }

} // namespace

bool DialetoAtual(Dialeto& d, std::string& msg) {
    const ConectorBD* k = ConectorAtual();
    if (!k) {
        msg = "Sem conexão com o banco de dados";
        ComunicaAtual().Status = status::Falha;
        ComunicaAtual().Msg = msg;
        return false;
    }
    d = std::string(k->Tipo()) == "ACCESS" ? Dialeto::Sqlite : Dialeto::Postgres;
    return true;
}

bool ExecutaTexto(const std::string& texto, std::string& msg) {
    Comunica& c = ComunicaAtual();
    c.Transacao = "REQUERY";
    c.Cursor = 0;
    c.Dados = texto;
    ExecutaComunica();
    // A query with no row is still a statement that ran.
    if (c.Status == status::SemLinha) c.Status = status::Ok;
    return Resultado(Resumo(texto), msg);
}

int16_t Prepara(const std::string& texto, std::string& msg) {
    PreparaComando(texto);
    return Resultado(Resumo(texto), msg) ? ComunicaAtual().Cursor : int16_t{0};
}

bool Executa(int16_t cursor, Valor::Lista valores, std::string& msg) {
    Comunica& c = ComunicaAtual();
    c.Transacao = "EXECUTE";
    c.Cursor = cursor;
    c.Dados = std::move(valores);
    ExecutaComunica();
    return Resultado("EXECUTE", msg);
}

bool Confirma(std::string& msg) {
    Comunica& c = ComunicaAtual();
    c.Transacao = "COMMIT";
    c.Cursor = 0;
    c.Dados = std::string();
    ExecutaComunica();
    return Resultado("COMMIT", msg);
}

bool Desfaz() {
    Comunica& c = ComunicaAtual();
    const std::string status = c.Status, m = c.Msg;
    c.Transacao = "ROLLBACK";
    c.Cursor = 0;
    c.Dados = std::string();
    ExecutaComunica();
    c.Status = status;
    c.Msg = m;
    return false;
}

} // namespace ztolvan
