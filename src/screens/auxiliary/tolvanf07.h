#pragma once
#include <string>

#include "screens/controles.h"
#include "screens/tela.h"

namespace ztolvan {

// "Consulta de Preços", the point of sale's front end: the operator gives a
// grouping code and a quantity; OK turns every item of the grouping in the
// session's price type into one line of the sales-data text, hands it back
// in Sessao.DadosRetorno with Sessao.StatusRet 0, commits and closes.
// Leaving without OK keeps StatusRet as ZProcessa set it (1).
class TolvanF07 : public Tela {
  public:
    TolvanF07();

    BarraTitulo BarraTitulo1;
    Rotulo Label2;
    CaixaTexto TCodigo;
    Rotulo LNome;
    Rotulo LbInfQtd;
    CaixaTexto TxQtdGera;
    Botao BTOk, bttLista, bttLimpar, bttSair;
    Forma shContorno;

    void Form_Load() override;
    void Form_Activate() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void Form_QueryUnload(int& Cancel, int UnloadMode) override;

    void BTOk_Click();
    void bttLista_Click();
    void bttLimpar_Click();
    void bttSair_Click();

    // Reads the grouping of the code field (its first item in the price type)
    // and shows its name; true when a row came back ("00").
    bool LerCodigo();
    // The unit price of the equivalence row just read, promotion included;
    // false in 'ok' after a reported failure.
    double PrecoPromocional(bool& ok);

    void sbLista();
    void sbLimparCampos();
    void sbSair();
    void FazCommit();

    // One line of the sales-data text, as the point of sale reads it.
    static std::string LinhaDadosVenda(const std::string& codItem, const std::string& codEquiv, double qtd,
                                       const std::string& prefixo, const std::string& dscItem, double preco);

  private:
    // Builds the sales-data text, commits and closes; a run-time error ends
    // the handler that called it (OK), 'linha' quoting the step.
    void sbGeraDadosVenda(int& linha);
    // "[first n letters of the name] " when the setting asks for it.
    static std::string PrefixoNome(const std::string& nome);
    // The code field is a grouping code the table can hold.
    bool CodigoCabe();
    void PosicionaChave();

    bool Saindo = false;
};

} // namespace ztolvan
