#include "common/texto.h"

namespace ztolvan {
namespace {

// Length in bytes of the character that starts with byte c; an invalid lead
// byte counts as a character of its own so that no input can derail a walk.
size_t TamanhoSequencia(unsigned char c) {
    if (c < 0x80) return 1;
    if ((c & 0xE0) == 0xC0) return 2;
    if ((c & 0xF0) == 0xE0) return 3;
    if ((c & 0xF8) == 0xF0) return 4;
    return 1;
}

size_t Avanca(std::string_view s, size_t pos) {
    size_t n = TamanhoSequencia(static_cast<unsigned char>(s[pos]));
    if (pos + n > s.size()) return pos + 1;
    for (size_t i = 1; i < n; ++i)
        if ((static_cast<unsigned char>(s[pos + i]) & 0xC0) != 0x80) return pos + 1;
    return pos + n;
}

// Byte offset of character index k (0-based), or s.size() past the end.
size_t Offset(std::string_view s, size_t k) {
    size_t pos = 0;
    while (k > 0 && pos < s.size()) {
        pos = Avanca(s, pos);
        --k;
    }
    return pos;
}

} // namespace

size_t Largura(std::string_view s) {
    size_t n = 0;
    for (size_t pos = 0; pos < s.size(); pos = Avanca(s, pos))
        ++n;
    return n;
}

void TextoFixoEm(std::string& destino, std::string_view s, size_t n) {
    size_t pos = 0, k = 0;
    while (k < n && pos < s.size()) {
        pos = Avanca(s, pos);
        ++k;
    }
    destino.reserve(pos + n - k);
    destino.assign(s.substr(0, pos));
    destino.append(n - k, ' ');
}

std::string TextoFixo(std::string_view s, size_t n) {
    std::string r;
    TextoFixoEm(r, s, n);
    return r;
}

std::string_view EsquerdaVista(std::string_view s, size_t n) { return s.substr(0, Offset(s, n)); }

std::string Esquerda(std::string_view s, size_t n) { return std::string(EsquerdaVista(s, n)); }

std::string Direita(std::string_view s, size_t n) {
    size_t total = Largura(s);
    if (n >= total) return std::string(s);
    return std::string(s.substr(Offset(s, total - n)));
}

std::string Meio(std::string_view s, size_t inicio, size_t n) {
    if (inicio == 0) inicio = 1;
    size_t a = Offset(s, inicio - 1);
    if (n == std::string::npos) return std::string(s.substr(a));
    size_t b = a;
    while (n > 0 && b < s.size()) {
        b = Avanca(s, b);
        --n;
    }
    return std::string(s.substr(a, b - a));
}

std::string AparaDireita(std::string_view s) {
    size_t e = s.find_last_not_of(' ');
    return e == std::string_view::npos ? std::string() : std::string(s.substr(0, e + 1));
}

std::string AparaEsquerda(std::string_view s) {
    size_t b = s.find_first_not_of(' ');
    return b == std::string_view::npos ? std::string() : std::string(s.substr(b));
}

std::string_view AparaVista(std::string_view s) {
    size_t b = s.find_first_not_of(' ');
    if (b == std::string_view::npos) return {};
    size_t e = s.find_last_not_of(' ');
    return s.substr(b, e - b + 1);
}

std::string Apara(std::string_view s) { return std::string(AparaVista(s)); }

std::string Maiusculas(std::string_view s) {
    std::string r;
    r.reserve(s.size());
    for (size_t i = 0; i < s.size(); ++i) {
        unsigned char c = static_cast<unsigned char>(s[i]);
        if (c >= 'a' && c <= 'z') {
            r.push_back(static_cast<char>(c - 32));
        } else if (c == 0xC3 && i + 1 < s.size()) {
            // Latin-1 supplement letters U+00E0..U+00FE (but U+00F7, the
            // division sign) map to U+00C0..U+00DE.
            unsigned char d = static_cast<unsigned char>(s[i + 1]);
            r.push_back(static_cast<char>(c));
            r.push_back(static_cast<char>((d >= 0xA0 && d <= 0xBE && d != 0xB7) ? d - 0x20 : d));
            ++i;
        } else {
            r.push_back(static_cast<char>(c));
        }
    }
    return r;
}

std::string Normaliza(std::string_view s) { return Maiusculas(Apara(s)); }

std::string DobraAspas(std::string_view s) {
    std::string r;
    r.reserve(s.size() + 2);
    for (char c : s) {
        r.push_back(c);
        if (c == '\'') r.push_back('\'');
    }
    return r;
}

bool IguaisSemCaixa(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 32);
        if (y >= 'a' && y <= 'z') y = static_cast<char>(y - 32);
        if (x != y) return false;
    }
    return true;
}

} // namespace ztolvan
