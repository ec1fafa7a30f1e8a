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
    // Says so when the multiplier asks more whole groupings than the free
    // stock supplies: a warning, generation still asks about each item.
    Rotulo LAviso;
    CaixaTexto TxQtdGera;
    Botao bok;
    Forma shContorno, Shape1;

    void Form_KeyDown(int& KeyCode, int Shift) override;
    void bok_Click();
    void AtualizaAviso();
};

} // namespace ztolvan
