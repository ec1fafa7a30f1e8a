#pragma once
#include <string>
#include <vector>

#include "screens/controles.h"
#include "screens/tela.h"

namespace ztolvan {

// "Lista de Produtos Agrupados": the active groupings with items in the
// price type in effect, by name; hands the picked code back in
// CodigoSelecionado ("" when cancelled). A whole-number code goes back as
// its decimal text ("007" as "7") and rides in the entry's item data; any
// other code (the suite allows letters) goes back as its trimmed text.
class TolvanF02 : public Tela {
  public:
    TolvanF02();

    BarraTitulo BarraTitulo1;
    Lista lstProdutosAgrupados;
    Rotulo Label1, LMsg;
    Forma shContorno;

    void Form_Load() override;
    void Form_Activate() override;
    void Form_QueryUnload(int& Cancel, int UnloadMode) override;
    void PreencheLista();
    void lstProdutosAgrupados_DblClick();
    void lstProdutosAgrupados_KeyDown(int& KeyCode, int Shift);

    // The list statement, as sent.
    static std::string Comando(int16_t empresa, const std::string& tipoPreco);

  private:
    void Seleciona();
    std::vector<std::string> codigos_; // per entry, the code as stored (trimmed)
};

} // namespace ztolvan
