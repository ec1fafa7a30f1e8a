#include "data/conector_comum.h"

#include <exception>

#include "common/texto.h"
#include "data/comunica.h"

namespace ztolvan {
namespace {

const Valor::Lista& ValoresDe(const Valor& dados) {
    static const Valor::Lista nenhum;
    return dados.eLista() ? dados.lista() : nenhum;
}

std::string MsgSemConexao() { return "Sem conexão com o banco de dados"; }

} // namespace

void ConectorComum::ZConnectOpen(std::string& Servidor, std::string& Banco, std::string& Usuario,
                                 std::string& Senha, int16_t& Conexao, std::string& Status,
                                 std::string& Msg) {
    try {
        if (Conectado()) Desconecta();
        cursores_.clear();
        std::string msg;
        if (!Conecta(Servidor, Banco, Usuario, Senha, msg)) {
            Status = status::Falha;
            Msg = msg;
            return;
        }
        Conexao = conexao_ = 1;
        Status = status::Ok;
        Msg.clear();
    } catch (const std::exception& e) {
        Status = status::Falha;
        Msg = e.what();
    }
}

void ConectorComum::ZConnectClose(int16_t&) {
    try {
        cursores_.clear();
        if (Conectado()) Desconecta();
    } catch (...) {
    }
}

void ConectorComum::Processa(int16_t&, std::string& Transacao, int16_t& Cursor, std::string& Status,
                             std::string& Msg, Valor& Dados, Valor& Retorno) {
    // The last row's storage serves the next one, so a walk over a result
    // makes no row of its own; a call that brings no row leaves Retorno empty.
    reserva_ = std::move(Retorno);
    Retorno = std::string();
    try {
        Msg.clear();
        if (!Conectado()) {
            Status = status::Falha;
            Msg = MsgSemConexao();
            return;
        }
        ProcessaPalavra(Normaliza(Transacao), Cursor, Status, Msg, Dados, Retorno);
    } catch (const std::exception& e) {
        Status = status::Falha;
        Msg = e.what();
    } catch (...) {
        Status = status::Falha;
        Msg = "Erro desconhecido no conector";
    }
}

void ConectorComum::ProcessaPalavra(const std::string& palavra, int16_t& Cursor, std::string& Status,
                                    std::string& Msg, Valor& Dados, Valor& Retorno) {
    if (palavra == "PREPARE") {
        if (!Dados.eTexto()) {
            Status = status::Falha;
            Msg = "PREPARE espera o texto de um comando";
            return;
        }
        auto cmd = Prepara(Dados.texto(), false, Msg);
        if (!cmd) {
            Status = status::Falha;
            Cursor = 0;
            return;
        }
        ConectorComum::Cursor novo;
        novo.comando = std::move(cmd);
        Cursor = Guarda(std::move(novo));
        Status = Cursor ? status::Ok : status::Falha;
        if (!Cursor) Msg = "Limite de comandos preparados atingido";
        return;
    }
    if (palavra == "COMMIT") {
        if (!retendo_) {
            Status = Confirma(Msg);
            return;
        }
        // Kept in the held unit; a new savepoint is what ROLLBACK goes back to.
        Status = ComandoNaUnidade("RELEASE SAVEPOINT zt_previa", Msg);
        if (Status == status::Ok) Status = ComandoNaUnidade("SAVEPOINT zt_previa", Msg);
        return;
    }
    if (palavra == "ROLLBACK") {
        Status = retendo_ ? ComandoNaUnidade("ROLLBACK TO SAVEPOINT zt_previa", Msg) : Desfaz(Msg);
        return;
    }
    if ((palavra == "OPEN" || palavra == "REQUERY") && Cursor == 0) {
        // A whole statement text: REQUERY hands back its first row and keeps
        // nothing; OPEN keeps the result under a new handle for NEXT and CLOSE.
        if (!Dados.eTexto()) {
            Status = status::Falha;
            Msg = palavra + " sem cursor espera o texto de um comando";
            return;
        }
        auto cmd = Prepara(Dados.texto(), true, Msg);
        if (!cmd) {
            Status = status::Falha;
            return;
        }
        ConectorComum::Cursor c;
        c.comando = std::move(cmd);
        c.avulso = true;
        Roda(c, Valor(), Status, Msg, Retorno);
        if (palavra == "OPEN" && (Status == status::Ok || Status == status::SemLinha)) {
            Cursor = Guarda(std::move(c));
            if (!Cursor) {
                Status = status::Falha;
                Msg = "Limite de comandos preparados atingido";
            }
        }
        return;
    }
    ConectorComum::Cursor* c = Acha(Cursor);
    if (!c) {
        Status = status::Falha;
        Msg = "Cursor inválido: " + std::to_string(Cursor);
        return;
    }
    if (palavra == "OPEN" || palavra == "REQUERY" || palavra == "EXECUTE") {
        Roda(*c, Dados, Status, Msg, Retorno);
    } else if (palavra == "NEXT" || palavra == "PREV" || palavra == "FIRST" || palavra == "LAST") {
        if (!c->aberto) {
            Status = status::Falha;
            Msg = "Cursor " + std::to_string(Cursor) + " não está aberto";
            return;
        }
        Move(*c, palavra, Status, Msg, Retorno);
    } else if (palavra == "CLOSE") {
        if (c->avulso) {
            cursores_[static_cast<size_t>(Cursor)].reset();
        } else {
            c->resultado = {};
            c->posicao = -1;
            c->aberto = false;
        }
        Status = status::Ok;
    } else if (palavra == "#INSERT" || palavra == "#UPDATE" || palavra == "#DELETE") {
        Status = status::Falha;
        Msg = "Comando " + palavra + " não é suportado por este conector";
    } else {
        Status = status::Falha;
        Msg = "Comando desconhecido: " + palavra;
    }
}

void ConectorComum::Roda(Cursor& c, const Valor& dados, std::string& Status, std::string& Msg,
                         Valor& Retorno) {
    const Valor::Lista& valores = ValoresDe(dados);
    if (static_cast<int>(valores.size()) != c.comando->Parametros()) {
        Status = status::Falha;
        Msg = "Número de valores (" + std::to_string(valores.size()) +
              ") diferente do número de parâmetros (" + std::to_string(c.comando->Parametros()) + ")";
        return;
    }
    c.resultado.linhas.Inicia(0);
    c.posicao = -1;
    c.aberto = false;
    Status = Executa(*c.comando, valores, c.resultado, false, Msg);
    if (Status != status::Ok) return;
    c.aberto = true;
    if (!c.comando->EhConsulta()) return; // a change: nothing to position on
    Move(c, "FIRST", Status, Msg, Retorno);
}

void ConectorComum::Move(Cursor& c, const std::string& palavra, std::string& Status, std::string& Msg,
                         Valor& Retorno) {
    const long n = static_cast<long>(c.resultado.linhas.size());
    long p = c.posicao;
    if (palavra == "NEXT")
        p = p + 1;
    else if (palavra == "PREV")
        p = p - 1;
    else if (palavra == "FIRST")
        p = 0;
    else
        p = n - 1;
    if (p < 0 || p >= n) {
        c.posicao = p < 0 ? -1 : n;
        Status = status::SemLinha;
        Msg = n == 0 ? "Nenhum registro encontrado" : "Fim dos registros";
        return;
    }
    c.posicao = p;
    if (!reserva_.eLista()) reserva_ = Valor(Valor::Lista{});
    c.resultado.linhas.Copia(static_cast<size_t>(p), reserva_.lista());
    Retorno = std::move(reserva_);
    Status = status::Ok;
}

void ConectorComum::Consulta(int16_t, const std::string& Texto, TabelaResultado& Tabela, std::string& Status,
                             std::string& Msg) {
    try {
        Tabela = {};
        Msg.clear();
        if (!Conectado()) {
            Status = status::Falha;
            Msg = MsgSemConexao();
            return;
        }
        auto cmd = Prepara(Texto, true, Msg);
        if (!cmd) {
            Status = status::Falha;
            return;
        }
        if (cmd->Parametros() != 0) {
            Status = status::Falha;
            Msg = "O comando tem parâmetros sem valores";
            return;
        }
        Status = Executa(*cmd, {}, Tabela, true, Msg);
    } catch (const std::exception& e) {
        Status = status::Falha;
        Msg = e.what();
    }
}

ConectorComum::Cursor* ConectorComum::Acha(int16_t handle) {
    if (handle <= 0 || static_cast<size_t>(handle) >= cursores_.size()) return nullptr;
    auto& c = cursores_[static_cast<size_t>(handle)];
    return c ? &*c : nullptr;
}

int16_t ConectorComum::Guarda(Cursor c) {
    if (cursores_.empty()) cursores_.resize(1); // handle 0 means "no statement"
    for (size_t i = 1; i < cursores_.size(); ++i) {
        if (!cursores_[i]) {
            cursores_[i] = std::move(c);
            return static_cast<int16_t>(i);
        }
    }
    if (cursores_.size() > 32767) return 0;
    cursores_.push_back(std::move(c));
    return static_cast<int16_t>(cursores_.size() - 1);
}

bool ConectorComum::RetemAlteracoes(bool reter, std::string& msg) {
    if (reter == retendo_) return true;
    if (!Conectado()) {
        msg = "Sem conexão com o banco de dados";
        return false;
    }
    if (reter) {
        // What was pending before the preview is not the preview's to undo.
        if (Confirma(msg) != status::Ok || AbreUnidadeRetida(msg) != status::Ok) return false;
        if (ComandoNaUnidade("SAVEPOINT zt_previa", msg) != status::Ok) {
            std::string ignora;
            DesfazUnidadeRetida(ignora);
            return false;
        }
        retendo_ = true;
        return true;
    }
    retendo_ = false;
    return DesfazUnidadeRetida(msg) == status::Ok;
}

bool ConectorComum::TravaParaAlterar(const std::string& chave, std::string& msg) {
    if (retendo_) return true;
    if (!Conectado()) {
        msg = "Sem conexão com o banco de dados";
        return false;
    }
    return AbreUnidadeTravada(chave, msg) == status::Ok;
}

} // namespace ztolvan
