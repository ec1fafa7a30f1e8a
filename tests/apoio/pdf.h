#pragma once
// A printed PDF read back as an operator would read the paper: page by page,
// through poppler's pdfinfo and pdftotext.
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "apoio/linha_de_comando.h"

namespace ztolvan::teste {

// The text of each page; empty when the file is not a PDF.
inline std::vector<std::string> PaginasDoPdf(const std::string& arquivo) {
    const Saida info = Executa("pdfinfo '" + arquivo + "' 2>/dev/null");
    const size_t p = info.texto.find("Pages:");
    if (info.codigo != 0 || p == std::string::npos) return {};
    const int paginas = std::atoi(info.texto.c_str() + p + 6);
    std::vector<std::string> r;
    for (int i = 1; i <= paginas; ++i)
        r.push_back(Executa("pdftotext -layout -f " + std::to_string(i) + " -l " + std::to_string(i) + " '" +
                            arquivo + "' - 2>/dev/null")
                        .texto);
    return r;
}

// The item numbers a quotation page lists: the lines that start with one.
inline std::vector<int> ItensDaPagina(const std::string& pagina) {
    std::vector<int> itens;
    std::istringstream in(pagina);
    for (std::string linha; std::getline(in, linha);)
        if (!linha.empty() && linha[0] >= '1' && linha[0] <= '9') itens.push_back(std::atoi(linha.c_str()));
    return itens;
}

// Grouping COT60 of the demo company: 000101's products over 60 rows, row i
// with quantity i so that none collapses into another.
inline constexpr const char* SqlAgrupamentoSessentaItens =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 60) "
    "INSERT INTO TBMATAG (Empresa, Codigo, Nome, Item, CodItem, DscItem, CodEquiv, Qtd, UndItem, QtdUnd, "
    "Valor, Campo1, Campo2, STTR, CodForn, RazFornec, Observacao, Tipo) "
    "SELECT t.Empresa, 'COT60', 'Sessenta itens', n.i, t.CodItem, t.DscItem, t.CodEquiv, n.i, t.UndItem, "
    "t.QtdUnd, t.Valor, t.Campo1, t.Campo2, t.STTR, t.CodForn, t.RazFornec, t.Observacao, t.Tipo "
    "FROM n JOIN TBMATAG t ON t.Empresa = 1 AND t.Codigo = '000101' AND t.Item = ((n.i - 1) % 13) + 1";

// 1..n
inline std::vector<int> Sequencia(int de, int ate) {
    std::vector<int> r;
    for (int i = de; i <= ate; ++i) r.push_back(i);
    return r;
}

} // namespace ztolvan::teste
