#pragma once
#include "data/seguranca/autorizacao.h"

class QDialog;

namespace ztolvan {

// Asks for the operator who authorises and that operator's password in a
// small modal dialog. Esc, Cancelar or the close box give up (false). From a
// thread other than the screens' nobody can be asked, so it gives up too.
class AutorizacaoQt : public PortaAutorizacao {
  public:
    bool PedeAutorizacao(const std::string& Programa, const std::string& Funcao, const std::string& Operador,
                         const std::string& Texto, std::string& Autorizador, std::string& Senha) override;

  protected:
    // Runs the dialog; true when it was accepted. Tests fill it themselves.
    virtual bool Executa(QDialog& dialogo);
};

} // namespace ztolvan
