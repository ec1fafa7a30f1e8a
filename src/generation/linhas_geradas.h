#pragma once
// The item rows a generation wrote, read back as a host or an operator would
// check them: the same fields whether the run was real or a preview.
#include <cstdint>
#include <string>
#include <vector>

#include "common/explicacao.h"

namespace ztolvan {

struct LinhaGerada {
    int32_t item = 0;
    std::string produto, descricao, sitTrib;
    double quantidade = 0, valorUnitario = 0, percICMS = 0, percICMSST = 0, percIPI = 0, total = 0;
    // Why this price and these taxes, when explanations were on.
    Notas explicacao;
    bool operator==(const LinhaGerada&) const = default;
};

// The rows of the open document (origin V, C or D of the session) whose
// item numbers the thread's last generation wrote, in that order. A purchase
// order's rows are the session supplier's. Empty when nothing was written or
// the read fails.
std::vector<LinhaGerada> LinhasGeradas();

// The sum of the lines' totals.
double TotalDasLinhas(const std::vector<LinhaGerada>& linhas);

} // namespace ztolvan
