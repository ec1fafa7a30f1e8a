#pragma once
#include <memory>

#include "generation/cotacao/impressora.h"
#include "screens/controles.h"
#include "screens/tela.h"

namespace ztolvan {

class TolvanF01;

// "Impressão": the title and footer text of a quotation of the
// consultation screen's marked items, and the print button.
class TolvanF04 : public Tela {
  public:
    explicit TolvanF04(const TolvanF01& consulta);

    BarraTitulo BarraTitulo1;
    Rotulo Label1, Label2;
    CaixaTexto TxTitulo, TxRodape;
    Botao bok, BCancela;
    Forma shContorno;

    void Form_Load() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void bok_Click();
    void BCancela_Click();

  private:
    const TolvanF01& consulta_;
    // The job while one is open.
    std::shared_ptr<PortaImpressora> impressora_;
};

} // namespace ztolvan
