#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screens/controles.h"

namespace ztolvan {

// Cell alignment of a grid column, numbered as the old grid control numbers it.
enum class AlinhamentoGrade : int {
    EsquerdaTopo = 0,
    EsquerdaCentro = 1,
    EsquerdaBaixo = 2,
    CentroTopo = 3,
    CentroCentro = 4,
    CentroBaixo = 5,
    DireitaTopo = 6,
    DireitaCentro = 7,
    DireitaBaixo = 8,
    Geral = 9,
};

// A grid: rows of text cells, row 0 the header. Column widths are kept as
// runs of the letter "M" in the screen's font; the view measures them.
// Cells are stored once, row after row, and a view reads them in place.
class Grade : public Controle {
  public:
    TipoControle Tipo() const override { return TipoControle::Grade; }

    int Rows() const { return linhas_; }
    int Cols() const { return colunas_; }
    // New rows and columns are empty; cut ones are dropped. The current cell
    // stays inside the grid.
    void DefineRows(int n);
    void DefineCols(int n);
    int FixedRows = 0;
    int FixedCols = 0;
    // The column whose non-blank cell marks a row for a later command (-1:
    // none). A view shows the mark on the row even when the column is hidden.
    int ColunaMarca = -1;

    // The current cell. Out-of-range values are the old control's error 381.
    int Row() const { return linha_; }
    int Col() const { return coluna_; }
    void DefineRow(int r);
    void DefineCol(int c);
    // The selection's other corner (the current cell is the first).
    int RowSel() const { return linhaSel_; }
    void DefineRowSel(int r);

    const std::string& TextMatrix(int r, int c) const;
    void DefineTextMatrix(int r, int c, std::string texto);
    // The current cell's text.
    const std::string& Text() const { return TextMatrix(linha_, coluna_); }
    void DefineText(std::string texto) { DefineTextMatrix(linha_, coluna_, std::move(texto)); }

    // Column width as a run of "M" (0 hides the column).
    int LarguraM(int c) const;
    void DefineLarguraM(int c, int ms);
    AlinhamentoGrade ColAlignment(int c) const;
    void DefineColAlignment(int c, AlinhamentoGrade a);

    // Adds a row at the end from one text whose cells are separated by tabs;
    // cells beyond the column count are dropped.
    void AddItem(std::string_view linha);
    // Adds an empty row at the end and hands back its cells to be written in
    // place: a reload into the same grid writes into the texts of the rows
    // it cut, with no text of its own to make and move.
    std::span<std::string> NovaLinha();
    // Room for this many rows, so a long load does not move the cells again.
    void Reserva(int linhas) { celulas_.reserve(static_cast<size_t>(linhas) * colunas_); }
    // Empties every cell (rows and columns stay).
    void Clear();

    // The operator moved to a cell (click or keys): current cell and the
    // selection change; SelChange runs when the row changed.
    void Seleciona(int r, int c);
    std::function<void()> SelChange;

    // Bumped on any change of rows, columns or texts, so a view redraws only
    // then; Estrutura only on rows and columns.
    uint64_t Versao() const { return versao_; }
    uint64_t VersaoEstrutura() const { return versaoEstrutura_; }

  private:
    void Confere(int r, int c) const;
    void MudouEstrutura() {
        ++versao_;
        ++versaoEstrutura_;
    }

    int linhas_ = 0, colunas_ = 0;
    int linha_ = 0, coluna_ = 0, linhaSel_ = 0;
    std::vector<std::string> celulas_; // linhas_ * colunas_
    std::vector<std::string> sobras_;  // emptied cells of cut rows, for new ones
    std::vector<int> larguras_;
    std::vector<AlinhamentoGrade> alinhamentos_;
    uint64_t versao_ = 0, versaoEstrutura_ = 0;
};

} // namespace ztolvan
