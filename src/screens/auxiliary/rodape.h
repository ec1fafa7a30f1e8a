#pragma once
#include <string>

#include "screens/controles.h"

namespace ztolvan {

class Tela;

namespace painel {
inline constexpr Cor Faixa = RGB(65, 105, 225);
inline constexpr Cor Texto = RGB(255, 255, 255);
inline constexpr Cor Aviso = RGB(247, 235, 2);
inline constexpr int Altura = 300;
} // namespace painel

// Builds the blue information strip along the bottom of a screen: t1 to t7
// from the left (empty ones skipped, t7 the warning, in yellow with a beep),
// t8 at the right end. Whatever an earlier call built is removed first.
void sbMontaRodape(Tela& frm, const std::string& t1 = "", const std::string& t2 = "",
                   const std::string& t3 = "", const std::string& t4 = "", const std::string& t5 = "",
                   const std::string& t6 = "", const std::string& t7 = "", const std::string& t8 = "");

// "Data: DD/MM/YYYY" of today, the strip's first text on every screen.
std::string TextoDataHoje();
// The suite's support contact line: the machine-wide store's "Suporte"
// value when there is one, else the suite's own line.
std::string LinhaSuporte();

} // namespace ztolvan
