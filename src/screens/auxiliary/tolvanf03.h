#pragma once
#include "screens/controles.h"
#include "screens/tela.h"

namespace ztolvan {

// "Alteração da Quantidade/Preço": changes the quantity of one item-grid row.
// In: DescricaoAlterar, FornecedorAlterar, QtdAlterar. Out: QtdAlterar and
// AlteracaoConfirmada (true only when OK stored a quantity).
class TolvanF03 : public Tela {
  public:
    TolvanF03();

    BarraTitulo BarraTitulo1;
    Rotulo lblDescricao, LEquivalencia, lblFornecedor, LDescricao;
    Moldura Frame1;
    Rotulo lblQtd, lblValor;
    CaixaTexto TQtd, txtValor;
    Botao BTOk, BtCancela;
    Forma shContorno;

    void Form_Load() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void BTOk_Click();
    void BtCancela_Click() { Unload(); }
};

} // namespace ztolvan
