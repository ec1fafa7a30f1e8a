#pragma once
#include "common/mensagens.h"

class QMessageBox;

namespace ztolvan {

// The suite's message component as a QMessageBox: buttons, icon and default
// button from the message code, Texto1 as the detailed text, and the button
// pressed answered as the system numbers it (1 OK, 2 Cancel, 6 Yes, 7 No ...).
class MensagensQt : public PortaMensagens {
  public:
    Valor fnMsgbox(const std::string& Texto, int32_t Tipo, const std::string& Titulo,
                   const std::string& Texto1, const std::string& Texto2, const std::string& Texto3,
                   int32_t Valor1, const std::string& Texto4) override;

  protected:
    // Runs the box until a button is pressed. Tests press one themselves.
    virtual void Executa(QMessageBox& caixa);
};

} // namespace ztolvan
