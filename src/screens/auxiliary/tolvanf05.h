#pragma once
#include "screens/controles.h"
#include "screens/tela.h"

namespace ztolvan {

// "Gera Documento": asks the multiplier QtdGera before a generation. Esc
// closes without storing (the screen sees the key first), so QtdGera keeps
// the value of the previous generation.
class TolvanF05 : public Tela {
  public:
    TolvanF05();

    Rotulo lblTitulo, LbInfQtd;
    CaixaTexto TxQtdGera;
    Botao bok;
    Forma shContorno, Shape1;

    void Form_KeyDown(int& KeyCode, int Shift) override;
    void bok_Click();
};

} // namespace ztolvan
