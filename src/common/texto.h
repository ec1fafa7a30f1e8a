#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace ztolvan {

// Texts are UTF-8; every width and position here counts characters (code
// points), never bytes: "AÇÚCAR" is 6 wide.

size_t Largura(std::string_view s);
// Fixed-width assignment: cut to n characters or padded with blanks on the right.
std::string TextoFixo(std::string_view s, size_t n);
// The same into a text whose buffer is kept, for walks over many rows.
void TextoFixoEm(std::string& destino, std::string_view s, size_t n);
std::string Esquerda(std::string_view s, size_t n);
std::string Direita(std::string_view s, size_t n);
// Characters from position inicio (1-based) on, at most n of them.
std::string Meio(std::string_view s, size_t inicio, size_t n = std::string::npos);

// Blanks only, as the old run-time's Trim did (tabs and line breaks stay).
std::string Apara(std::string_view s);
std::string AparaDireita(std::string_view s);
std::string AparaEsquerda(std::string_view s);
// Views of the same cuts, for a row's cell built from several of them in one text.
std::string_view AparaVista(std::string_view s);
std::string_view EsquerdaVista(std::string_view s, size_t n);

// Upper case, including the accented letters of Portuguese.
std::string Maiusculas(std::string_view s);
// Trimmed and upper-cased: how codes, origins and yes/no settings compare.
std::string Normaliza(std::string_view s);

// A text placed inside a quoted SQL literal, its single quotes doubled.
std::string DobraAspas(std::string_view s);

// Case-insensitive equality of ASCII names (column names, command words).
bool IguaisSemCaixa(std::string_view a, std::string_view b);

} // namespace ztolvan
