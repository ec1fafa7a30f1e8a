#pragma once
#include <string>
#include <string_view>

#include "common/valor.h"

namespace ztolvan {

// Display formats of the system: numeric patterns of '#', '0', '.' and ','
// ("########0.00", "##0.0000", "###0.00", "00", "0000") and text patterns of
// '@' ("@@@@@@@@", right-aligned in that many characters). Numbers round
// halves away from zero at the pattern's decimals and take the regional
// decimal and thousands separators.
std::string Formata(double v, std::string_view padrao);
// A text that is not a number comes back unchanged for numeric patterns.
std::string Formata(const Valor& v, std::string_view padrao);

// Money in the regional currency format ("R$ 1.234,56").
std::string FormataMoeda(double v);

namespace formatos {
inline constexpr std::string_view Valor = "########0.00";
inline constexpr std::string_view Quatro = "##0.0000";
inline constexpr std::string_view ValorCurto = "######0.00";
inline constexpr std::string_view Preco = "###0.00";
inline constexpr std::string_view Dois = "00";
inline constexpr std::string_view Revisao = "0000";
} // namespace formatos

} // namespace ztolvan
