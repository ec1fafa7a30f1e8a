#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "common/valor.h"

namespace ztolvan {

// The conversions of the old run-time, in one place. Failures raise
// ErroExecucao: 6 (overflow) or 13 (type mismatch).

// Leading-number parse: "12abc" is 12, "" and "abc" are 0, blanks are skipped,
// the decimal point is always "." whatever the region.
double Val(std::string_view s);

// Whole-text numeric parse in the regional conventions ("1.234,56" in pt_BR,
// money in the currency format "R$ 1.234,56" too);
// ErroExecucao 13 when the text is not a number.
double TextoParaNumero(std::string_view s);
// The number at the start of a text in the regional conventions, as an
// operator types it in a field: "1.000,01" is 1000.01, "12abc" is 12, "" and
// "abc" are 0. A thousands separator that groups no three digits, in a text
// without the decimal mark, is the decimal mark the operator meant: "2.5" is
// 2.5 in pt_BR, never 25. Never a type mismatch.
double ValRegional(std::string_view s);

// Numbers as databases, statements and files write them: "." for the
// decimal point, no grouping, whatever locale the host or the toolkit set for
// the C library. The whole text must be a number (blanks around it are
// allowed); false otherwise, and v is left alone.
bool LeNumero(std::string_view s, double& v);
// The shortest text that reads back as the same double ("24.9", "1e+20").
std::string EscreveNumero(double v);
// At most 'digitos' significant digits, trailing zeros dropped ("%.15g" of
// the C locale).
std::string EscreveNumero(double v, int digitos);

// A whole 32-bit number: an integer value, or a text of digits with an
// optional sign and blanks around ("000101" is 101); false for anything else
// ("CESTA01", "1.5", "").
bool LeInteiro32(const Valor& v, int32_t& r);

// Rounding to an integer with halves to even (2.5 -> 2, 3.5 -> 4).
double ArredondaPar(double v);

int16_t CInt(double v);
int32_t CLng(double v);
int16_t CInt(const Valor& v);
int32_t CLng(const Valor& v);
double CDbl(const Valor& v);
bool CBool(const Valor& v);
// Text of a value: numbers with up to 15 significant digits and the regional
// decimal separator; Empty is "".
std::string CStr(const Valor& v);
// The same as a view: a text value's own characters, any other written
// into 'apoio' (which the view then points into).
std::string_view TextoDe(const Valor& v, std::string& apoio);
// Decimal text of an integer ("Str$" without the leading blank).
std::string TextoDecimal(int64_t v);

// Narrowing as a record field assignment does it.
inline int16_t ParaInt16(const Valor& v) { return CInt(v); }
inline int32_t ParaInt32(const Valor& v) { return CLng(v); }

} // namespace ztolvan
