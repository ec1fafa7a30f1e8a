#include "data/seguranca/seguranca_banco.h"

#include <cstring>

#include "common/conversao.h"
#include "common/texto.h"
#include "data/banco_dados.h"
#include "data/comunica.h"
#include "data/despachante.h"
#include "data/seguranca/senha.h"

namespace ztolvan {
namespace {

// Column widths of the tables; keys are cut to them on the way in and out.
constexpr size_t LarguraOperador = 30;
constexpr size_t LarguraPrograma = 20;
constexpr size_t LarguraFuncao = 20;

// A key as a quoted literal.
std::string Literal(const std::string& texto, size_t largura) {
    return "'" + DobraAspas(Esquerda(Normaliza(texto), largura)) + "'";
}

std::string CondicaoDireito(const std::string& Operador, const std::string& Programa,
                            const std::string& Funcao) {
    return " WHERE OPERADOR = " + Literal(Operador, LarguraOperador) +
           " AND PROGRAMA = " + Literal(Programa, LarguraPrograma) +
           " AND FUNCAO = " + Literal(Funcao, LarguraFuncao);
}

ResultadoComando Roda(const std::string& sql) {
    clsBancoDados banco;
    return banco.fcExecutaComando(1, sql, false);
}

// The first row's column, or an empty value.
Valor Primeiro(const std::string& sql, const char* coluna) {
    ResultadoComando r = Roda(sql);
    if (r.situacao != status::Ok || r.rsDadosRetorno.Eof()) return {};
    return r.rsDadosRetorno.Fields(coluna).Value;
}

// Sends a command word without disturbing the caller's Comunica.
bool EnviaPalavra(const char* palavra, std::string& Msg) {
    Comunica& c = ComunicaAtual();
    const Comunica guardado = c;
    c.Transacao = palavra;
    c.Cursor = 0;
    c.Dados = std::string();
    ExecutaComunica();
    const bool ok = c.Status == status::Ok;
    if (!ok) Msg = c.Msg;
    c = guardado;
    return ok;
}

// A change as a unit of its own: committed, or rolled back so that a failed
// first change leaves no transaction (and no SQLite write lock) open.
bool Altera(const std::string& sql, std::string& Msg) {
    ResultadoComando r = Roda(sql);
    if (r.situacao != status::Ok) {
        Msg = r.mensagem;
        std::string ignora;
        EnviaPalavra("ROLLBACK", ignora);
        return false;
    }
    return EnviaPalavra("COMMIT", Msg);
}

std::string HashDe(const std::string& Operador) {
    Valor v =
        Primeiro("SELECT SENHAHASH FROM TBSEGOPERADOR WHERE OPERADOR = " + Literal(Operador, LarguraOperador),
                 "SENHAHASH");
    return v.eTexto() ? v.texto() : std::string();
}

} // namespace

std::vector<std::string> DdlSeguranca(bool postgres) {
    const std::string inteiroCurto = postgres ? "SMALLINT" : "INTEGER";
    return {
        "CREATE TABLE IF NOT EXISTS TBSEGOPERADOR (OPERADOR VARCHAR(30) NOT NULL, SENHAHASH VARCHAR(255) NOT "
        "NULL, "
        "PRIMARY KEY (OPERADOR))",
        "CREATE TABLE IF NOT EXISTS TBSEGDIREITO (OPERADOR VARCHAR(30) NOT NULL, PROGRAMA VARCHAR(20) NOT "
        "NULL, "
        "FUNCAO VARCHAR(20) NOT NULL, PERMITE " +
            inteiroCurto +
            " NOT NULL DEFAULT 0 CHECK (PERMITE IN (0, 1)), PRIMARY KEY (OPERADOR, PROGRAMA, FUNCAO))",
    };
}

bool CriaTabelasSeguranca(std::string& Msg) {
    try {
        ConectorBD* k = ConectorAtual();
        if (!k) {
            Msg = "Sem conexão com o banco de dados";
            return false;
        }
        const bool postgres = std::strcmp(k->Tipo(), "ACCESS") != 0;
        for (const std::string& sql : DdlSeguranca(postgres)) {
            ResultadoComando r = Roda(sql);
            if (r.situacao != status::Ok) {
                Msg = r.mensagem;
                return false;
            }
        }
        return EnviaPalavra("COMMIT", Msg);
    } catch (const std::exception& e) {
        Msg = e.what();
        return false;
    }
}

bool TemDireito(const std::string& Operador, const std::string& Programa, const std::string& Funcao) {
    try {
        if (Apara(Operador).empty()) return false;
        Valor v = Primeiro("SELECT PERMITE FROM TBSEGDIREITO" + CondicaoDireito(Operador, Programa, Funcao),
                           "PERMITE");
        return !v.vazio() && CLng(v) != 0;
    } catch (...) {
        return false;
    }
}

bool GravaOperadorSeguranca(const std::string& Operador, const std::string& Senha, std::string& Msg) {
    try {
        if (Apara(Operador).empty()) {
            Msg = "Operador em branco";
            return false;
        }
        const std::string hash = GeraHashSenha(Senha);
        if (hash.empty()) {
            Msg = "Senha em branco ou inválida";
            return false;
        }
        return Altera("INSERT INTO TBSEGOPERADOR (OPERADOR, SENHAHASH) VALUES (" +
                          Literal(Operador, LarguraOperador) + ", '" + DobraAspas(hash) +
                          "') ON CONFLICT (OPERADOR) DO UPDATE SET SENHAHASH = " + "excluded.SENHAHASH",
                      Msg);
    } catch (const std::exception& e) {
        Msg = e.what();
        return false;
    }
}

bool GravaDireito(const std::string& Operador, const std::string& Programa, const std::string& Funcao,
                  bool Permite, std::string& Msg) {
    try {
        if (Apara(Operador).empty()) {
            Msg = "Operador em branco";
            return false;
        }
        return Altera(
            "INSERT INTO TBSEGDIREITO (OPERADOR, PROGRAMA, FUNCAO, PERMITE) VALUES (" +
                Literal(Operador, LarguraOperador) + ", " + Literal(Programa, LarguraPrograma) + ", " +
                Literal(Funcao, LarguraFuncao) + ", " + (Permite ? "1" : "0") +
                ") ON CONFLICT (OPERADOR, PROGRAMA, FUNCAO) DO UPDATE SET PERMITE = excluded.PERMITE",
            Msg);
    } catch (const std::exception& e) {
        Msg = e.what();
        return false;
    }
}

void SegurancaBanco::ZProcessa(int16_t Codigo, const std::string& Programa, const std::string& Funcao,
                               std::string& OperadorCopia, int16_t& Resultado,
                               const std::string& TextoPassado, const std::string&) {
    Resultado = seguranca::Recusado;
    try {
        if (TemDireito(OperadorCopia, Programa, Funcao)) {
            Resultado = seguranca::Autorizado;
            return;
        }
        if (Codigo == seguranca::SoConsulta || !autorizacao_) return;
        std::string autorizador, senha;
        if (!autorizacao_->PedeAutorizacao(Programa, Funcao, OperadorCopia, TextoPassado, autorizador, senha))
            return;
        if (!TemDireito(autorizador, Programa, Funcao) || !ConfereSenha(senha, HashDe(autorizador))) return;
        Resultado = seguranca::Autorizado;
        OperadorCopia = Apara(autorizador);
    } catch (...) {
        Resultado = seguranca::Recusado;
    }
}

FabricaSeguranca FabricaSegurancaBanco(std::shared_ptr<PortaAutorizacao> autorizacao) {
    return [autorizacao]() -> std::shared_ptr<PortaSeguranca> {
        return std::make_shared<SegurancaBanco>(autorizacao);
    };
}

} // namespace ztolvan
