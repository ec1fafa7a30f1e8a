#pragma once
// The quotation ("Cotação"): the marked items of the open grouping printed
// with a page header, column headings, a grand total and a footer text. The
// screen (TolvanF04) and the command line share this layout.
#include <memory>
#include <string>

#include "generation/cotacao/impressora.h"
#include "screens/grade.h"

namespace ztolvan {

class TolvanF01;

// What a quotation prints: the consultation screen's item grid (the rows
// marked "*" in column 0), the grouping's name as the screen shows it, the
// title and the footer text.
struct Cotacao {
    const Grade& itens;
    std::string agrupamento;
    std::string titulo;
    std::string rodape;
};

namespace cotacao {
inline constexpr int LinhasPorPagina = 55;
inline constexpr int LarguraDescricao = 36;
} // namespace cotacao

// Prints the quotation and ends the document. A printer failure shows
// "Verifique a Impressora !!! " and abandons the job; a run-time error is
// reported and abandons it too. True when the document was ended.
bool ImprimeCotacao(PortaImpressora& p, const Cotacao& c);
// The open grouping of a consultation screen.
bool ImprimeCotacao(PortaImpressora& p, const TolvanF01& f, const std::string& titulo,
                    const std::string& rodape);

// The consultation screen's print command: needs a searched code, asks, and
// opens TolvanF04.
void sbImprimir(TolvanF01& f);
// Hands sbImprimir to the consultation screen (once per process).
void InstalaCotacao();

} // namespace ztolvan
