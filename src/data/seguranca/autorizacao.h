#pragma once
#include <string>
#include <vector>

namespace ztolvan {

// The authorisation dialog: asks who authorises an operation and that
// operator's password. Called on the checking thread.
class PortaAutorizacao {
  public:
    virtual ~PortaAutorizacao() = default;
    // False when the operator gave up (Esc, Cancel); Autorizador and Senha
    // then mean nothing.
    virtual bool PedeAutorizacao(const std::string& Programa, const std::string& Funcao,
                                 const std::string& Operador, const std::string& Texto,
                                 std::string& Autorizador, std::string& Senha) = 0;
};

// Where no dialog can be shown: nobody authorises, so only operators who
// hold the right pass.
class AutorizacaoSemDialogo : public PortaAutorizacao {
  public:
    bool PedeAutorizacao(const std::string&, const std::string&, const std::string&, const std::string&,
                         std::string&, std::string&) override {
        return false;
    }
};

struct AutorizacaoPedida {
    std::string Programa, Funcao, Operador, Texto;
};

// Gives the same answer every time and keeps what it was asked.
class AutorizacaoFixa : public PortaAutorizacao {
  public:
    AutorizacaoFixa() = default;
    AutorizacaoFixa(std::string autorizador, std::string senha)
        : autorizador(std::move(autorizador)), senha(std::move(senha)) {}

    bool PedeAutorizacao(const std::string& Programa, const std::string& Funcao, const std::string& Operador,
                         const std::string& Texto, std::string& Autorizador, std::string& Senha) override {
        pedidas.push_back({Programa, Funcao, Operador, Texto});
        Autorizador = autorizador;
        Senha = senha;
        return responde;
    }

    bool responde = true;
    std::string autorizador, senha;
    std::vector<AutorizacaoPedida> pedidas;
};

} // namespace ztolvan
