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

struct PalavraConhecida {
    const char* texto;
    ConectorComum::Palavra palavra;
};

// A call's command word, in any case and with spaces around it, known once
// per call: a walk of many NEXT makes no text and compares no list of words.
ConectorComum::Palavra Classifica(std::string_view transacao) {
    using P = ConectorComum::Palavra;
    static constexpr PalavraConhecida conhecidas[] = {
        {"NEXT", P::Next},         {"PREV", P::Prev},       {"FIRST", P::First},     {"LAST", P::Last},
        {"OPEN", P::Open},         {"CLOSE", P::Close},     {"EXECUTE", P::Execute}, {"REQUERY", P::Requery},
        {"PREPARE", P::Prepare},   {"COMMIT", P::Commit},   {"ROLLBACK", P::Rollback},
        {"#INSERT", P::SemSuporte}, {"#UPDATE", P::SemSuporte}, {"#DELETE", P::SemSuporte},
    };
    const std::string_view w = AparaVista(transacao);
    for (const auto& c : conhecidas)
        if (IguaisSemCaixa(w, c.texto)) return c.palavra;
    return P::Desconhecida;
}

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
        ProcessaPalavra(Classifica(Transacao), Transacao, Cursor, Status, Msg, Dados, Retorno);
    } catch (const std::exception& e) {
        Status = status::Falha;
        Msg = e.what();
    } catch (...) {
        Status = status::Falha;
        Msg = "Erro desconhecido no conector";
    }
}

void ConectorComum::ProcessaPalavra(Palavra palavra, const std::string& transacao, int16_t& Cursor,
                                    std::string& Status, std::string& Msg, Valor& Dados, Valor& Retorno) {
    if (palavra == Palavra::Prepare) {
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
    if (palavra == Palavra::Commit) {
        if (!retendo_) {
            Status = Confirma(Msg);
            return;
        }
        // Kept in the held unit; a new savepoint is what ROLLBACK goes back to.
        Status = ComandoNaUnidade("RELEASE SAVEPOINT zt_previa", Msg);
        if (Status == status::Ok) Status = ComandoNaUnidade("SAVEPOINT zt_previa", Msg);
        return;
    }
    if (palavra == Palavra::Rollback) {
        Status = retendo_ ? ComandoNaUnidade("ROLLBACK TO SAVEPOINT zt_previa", Msg) : Desfaz(Msg);
        return;
    }
    if ((palavra == Palavra::Open || palavra == Palavra::Requery) && Cursor == 0) {
        // A whole statement text: REQUERY hands back its first row and keeps
        // nothing; OPEN keeps the result under a new handle for NEXT and CLOSE.
        if (!Dados.eTexto()) {
            Status = status::Falha;
            Msg = Normaliza(transacao) + " sem cursor espera o texto de um comando";
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
        if (palavra == Palavra::Open && (Status == status::Ok || Status == status::SemLinha)) {
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
    switch (palavra) {
    case Palavra::Open:
    case Palavra::Requery:
    case Palavra::Execute:
        Roda(*c, Dados, Status, Msg, Retorno);
        return;
    case Palavra::Next:
    case Palavra::Prev:
    case Palavra::First:
    case Palavra::Last:
        if (!c->aberto) {
            Status = status::Falha;
            Msg = "Cursor " + std::to_string(Cursor) + " não está aberto";
            return;
        }
        Move(*c, palavra, Status, Msg, Retorno);
        return;
    case Palavra::Close:
        if (c->avulso) {
            cursores_[static_cast<size_t>(Cursor)].reset();
        } else {
            c->resultado = {};
            c->posicao = -1;
            c->aberto = false;
        }
        Status = status::Ok;
        return;
    case Palavra::SemSuporte:
        Status = status::Falha;
        Msg = "Comando " + Normaliza(transacao) + " não é suportado por este conector";
        return;
    default:
        Status = status::Falha;
        Msg = "Comando desconhecido: " + Normaliza(transacao);
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
    Move(c, Palavra::First, Status, Msg, Retorno);
}

void ConectorComum::Move(Cursor& c, Palavra palavra, std::string& Status, std::string& Msg, Valor& Retorno) {
    const long n = static_cast<long>(c.resultado.linhas.size());
    long p = c.posicao;
    if (palavra == Palavra::Next)
        p = p + 1;
    else if (palavra == Palavra::Prev)
        p = p - 1;
    else if (palavra == Palavra::First)
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
