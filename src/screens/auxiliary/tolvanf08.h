#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/banco_dados.h"
#include "screens/controles.h"
#include "screens/grade.h"
#include "screens/tela.h"

namespace ztolvan {

class TolvanF01;

// Grouping maintenance: the name, situation, observation and price type of
// one grouping, rewritten on every item row of it at once. It works on the
// selected row of the consultation screen's grouping grid and, on saving,
// writes the code, name and situation back there. 'itens' is the item grid
// of the same grouping (descriptions for the missing-price report), when
// there is one.
class TolvanF08 : public Tela {
  public:
    explicit TolvanF08(Grade& agrupamentos);

    BarraTitulo BarraTitulo1;
    Moldura FrCadastro;
    Rotulo LbCodigo, LbNome, Label1, lblObs, Label2;
    CaixaTexto TxCodigo, TxNome, txtObservacao;
    ListaSuspensa CmbSituacao, cbTipo;
    Botao bttIncluir, BtListaItem, bttLimpar, bttSair;
    Forma shContorno;

    void Form_Load() override;
    void Form_Resize();
    void Form_KeyDown(int& KeyCode, int Shift) override;

    void bttIncluir_Click();
    void bttLimpar_Click();
    void bttSair_Click();
    void BtListaItem_Click();

    void sbSair();
    void sbLimpaCampos();
    void sbPreencheComboSituacao();
    void sbPreecheComboTipoMat(const std::string& tipoAtual);
    // The price types of TBMATTP, one element more than there are types;
    // nothing when the query failed.
    std::optional<std::vector<int16_t>> fnProcurarTipoMat();
    std::optional<std::vector<int16_t>> fnPreencheArrayTipoMat(RecordSet& rs);
    // The grouping's items whose own equivalence code has no price in
    // 'tipo', as "code - description"; nothing when the query failed.
    std::optional<std::vector<std::string>> fnItensSemTipo(int16_t tipo);
    bool MoveToTBMATAG();
    bool FazCommit();

    // Position in cbTipo of the grouping's type as loaded (-1: none).
    int IndiceTipoOriginal = -1;

    // The type list statement, as sent.
    static std::string ComandoTipos();

  private:
    std::string CodigoDaLinha() const;

    Grade& agrupamentos_;
};

// Opens maintenance for the grouping of the consultation screen's selected
// row and returns when it closed; the consultation screen reloads its items.
void AbreManutencao(TolvanF01& f, const std::string& codigo, bool ativo);
// Hands AbreManutencao to the consultation screen (once per process).
void InstalaManutencao();

} // namespace ztolvan
