#include "common/conversao.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "common/erro.h"
#include "common/regiao.h"
#include "common/texto.h"

namespace ztolvan {
namespace {

// Whether a plain decimal text ("123.45e-6", no sign) is far from 1 upwards:
// from_chars says only "out of range", for an overflow and an underflow alike.
bool MagnitudeAcimaDeUm(std::string_view t) {
    long expoente = 0;
    size_t e = t.find_first_of("eE");
    if (e != std::string_view::npos) {
        std::string_view x = t.substr(e + 1);
        if (!x.empty() && x[0] == '+') x.remove_prefix(1);
        std::from_chars(x.data(), x.data() + x.size(), expoente);
        t = t.substr(0, e);
    }
    size_t ponto = t.find('.');
    std::string_view inteiro = t.substr(0, ponto);
    size_t nz = inteiro.find_first_not_of('0');
    if (nz != std::string_view::npos) return static_cast<long>(inteiro.size() - nz) - 1 + expoente > 0;
    if (ponto == std::string_view::npos) return false;
    std::string_view fracao = t.substr(ponto + 1);
    size_t primeiro = fracao.find_first_not_of('0');
    return primeiro != std::string_view::npos && -static_cast<long>(primeiro) - 1 + expoente > 0;
}

// A decimal text in the C conventions ("-12.5e3"), never through the C
// library's locale. Overflow is run-time error 6; an underflow reads as 0.
// 'lidos' is how many characters made the number (0 when none).
double DecimalC(std::string_view t, size_t& lidos) {
    lidos = 0;
    bool negativo = false;
    size_t i = 0;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) negativo = t[i++] == '-';
    // from_chars reads "inf" and "nan"; the system's numbers are digits only.
    if (i >= t.size() || !(std::isdigit(static_cast<unsigned char>(t[i])) || t[i] == '.')) return 0.0;
    double v = 0.0;
    const char* ini = t.data() + i;
    auto [fim, erro] = std::from_chars(ini, t.data() + t.size(), v, std::chars_format::general);
    if (erro == std::errc::invalid_argument) return 0.0;
    lidos = static_cast<size_t>(fim - t.data());
    if (erro == std::errc::result_out_of_range) {
        if (MagnitudeAcimaDeUm(std::string_view(ini, static_cast<size_t>(fim - ini))))
            throw ErroExecucao::Estouro();
        v = 0.0;
    }
    return negativo ? -v : v;
}

} // namespace

bool LeNumero(std::string_view s, double& v) {
    size_t b = s.find_first_not_of(" \t\r\n"), e = s.find_last_not_of(" \t\r\n");
    if (b == std::string_view::npos) return false;
    std::string_view t = s.substr(b, e - b + 1);
    size_t lidos = 0;
    double d;
    try {
        d = DecimalC(t, lidos);
    } catch (const ErroExecucao&) {
        return false;
    }
    if (lidos != t.size()) return false;
    v = d;
    return true;
}

bool LeInteiro32(const Valor& v, int32_t& r) {
    if (v.tipo() == Valor::Tipo::Inteiro) {
        if (v.inteiro() < std::numeric_limits<int32_t>::min() || v.inteiro() > std::numeric_limits<int32_t>::max())
            return false;
        r = static_cast<int32_t>(v.inteiro());
        return true;
    }
    if (!v.eTexto()) return false;
    std::string_view t = v.texto();
    size_t b = t.find_first_not_of(" \t"), e = t.find_last_not_of(" \t");
    if (b == std::string_view::npos) return false;
    t = t.substr(b, e - b + 1);
    if (t[0] == '+') t.remove_prefix(1);
    int32_t n = 0;
    auto [fim, erro] = std::from_chars(t.data(), t.data() + t.size(), n);
    if (erro != std::errc() || fim != t.data() + t.size()) return false;
    r = n;
    return true;
}

std::string EscreveNumero(double v) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, r.ptr);
}

std::string EscreveNumero(double v, int digitos) {
    char buf[64];
    auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, digitos);
    return std::string(buf, r.ptr);
}

std::string_view TextoDe(const Valor& v, std::string& apoio) {
    if (v.eTexto()) return v.texto();
    apoio = CStr(v);
    return apoio;
}

double Val(std::string_view s) {
    std::string limpo;
    limpo.reserve(s.size());
    for (char c : s)
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r') limpo.push_back(c);
    // The longest prefix that reads as sign, digits, point, digits, exponent.
    size_t i = 0;
    if (i < limpo.size() && (limpo[i] == '+' || limpo[i] == '-')) ++i;
    size_t digitos = 0;
    while (i < limpo.size() && std::isdigit(static_cast<unsigned char>(limpo[i])))
        ++i, ++digitos;
    if (i < limpo.size() && limpo[i] == '.') {
        ++i;
        while (i < limpo.size() && std::isdigit(static_cast<unsigned char>(limpo[i])))
            ++i, ++digitos;
    }
    if (digitos == 0) return 0.0;
    size_t fim = i;
    if (i < limpo.size() && (limpo[i] == 'e' || limpo[i] == 'E' || limpo[i] == 'd' || limpo[i] == 'D')) {
        size_t j = i + 1;
        if (j < limpo.size() && (limpo[j] == '+' || limpo[j] == '-')) ++j;
        size_t k = j;
        while (k < limpo.size() && std::isdigit(static_cast<unsigned char>(limpo[k])))
            ++k;
        if (k > j) {
            limpo[i] = 'e';
            fim = k;
        }
    }
    size_t lidos = 0;
    return DecimalC(std::string_view(limpo).substr(0, fim), lidos);
}

namespace {

// Whether the thousands separator just before 'i' groups three digits: three
// digits follow, and then no fourth.
bool AgrupaTresDigitos(std::string_view v, size_t i) {
    for (size_t k = 0; k < 3; ++k)
        if (i + k >= v.size() || !std::isdigit(static_cast<unsigned char>(v[i + k]))) return false;
    return i + 3 >= v.size() || !std::isdigit(static_cast<unsigned char>(v[i + 3]));
}

// The number at the start of v in the regional conventions; 'lidos' is how
// many characters it took (0 when none).
double NumeroRegionalNoInicio(std::string_view v, size_t& lidos, bool separadorSoltoEDecimal = false) {
    const Regiao& r = RegiaoAtual();
    std::string t;
    size_t i = 0;
    lidos = 0;
    if (i < v.size() && (v[i] == '+' || v[i] == '-')) t.push_back(v[i++]);
    // Money as the regional currency format writes it ("R$ 1.234,56",
    // "-R$ 5,00") reads as its number.
    if (!r.moeda.empty() && v.compare(i, r.moeda.size(), r.moeda) == 0) {
        i += r.moeda.size();
        while (i < v.size() && v[i] == ' ')
            ++i;
        if (t.empty() && i < v.size() && (v[i] == '+' || v[i] == '-')) t.push_back(v[i++]);
    }
    size_t digitos = 0;
    bool decimal = false;
    while (i < v.size()) {
        if (std::isdigit(static_cast<unsigned char>(v[i]))) {
            t.push_back(v[i++]);
            ++digitos;
        } else if (!decimal && v.compare(i, r.decimal.size(), r.decimal) == 0) {
            t.push_back('.');
            i += r.decimal.size();
            decimal = true;
        } else if (!decimal && !r.milhar.empty() && digitos > 0 &&
                   v.compare(i, r.milhar.size(), r.milhar) == 0) {
            i += r.milhar.size();
            // A separator that groups no three digits ("2.5", "1.25") is
            // the decimal mark an operator meant, when the text has none.
            if (separadorSoltoEDecimal && !AgrupaTresDigitos(v, i) &&
                v.find(r.decimal, i) == std::string_view::npos) {
                t.push_back('.');
                decimal = true;
            }
        } else {
            break;
        }
    }
    if (digitos == 0) return 0.0;
    if (i < v.size() && (v[i] == 'e' || v[i] == 'E')) {
        size_t j = i + 1;
        std::string exp = "e";
        if (j < v.size() && (v[j] == '+' || v[j] == '-')) exp.push_back(v[j++]);
        size_t k = j;
        while (j < v.size() && std::isdigit(static_cast<unsigned char>(v[j])))
            exp.push_back(v[j++]);
        if (j > k) {
            t += exp;
            i = j;
        }
    }
    lidos = i;
    size_t usados = 0;
    return DecimalC(t, usados);
}

std::string_view SemBrancosNasPontas(std::string_view s) {
    size_t b = s.find_first_not_of(" \t"), e = s.find_last_not_of(" \t");
    return b == std::string_view::npos ? std::string_view() : s.substr(b, e - b + 1);
}

} // namespace

double TextoParaNumero(std::string_view s) {
    std::string_view v = SemBrancosNasPontas(s);
    size_t lidos = 0;
    double d = NumeroRegionalNoInicio(v, lidos);
    if (lidos == 0 || lidos != v.size()) throw ErroExecucao::TiposIncompativeis();
    return d;
}

double ValRegional(std::string_view s) {
    size_t lidos = 0;
    return NumeroRegionalNoInicio(SemBrancosNasPontas(s), lidos, true);
}

double ArredondaPar(double v) {
    // nearbyint honours the current rounding mode; the default is to nearest, ties to even.
    return std::nearbyint(v);
}

namespace {

template <class T> T Estreita(double v) {
    if (std::isnan(v)) throw ErroExecucao::Estouro();
    double r = ArredondaPar(v);
    if (r < static_cast<double>(std::numeric_limits<T>::min()) ||
        r > static_cast<double>(std::numeric_limits<T>::max()))
        throw ErroExecucao::Estouro();
    return static_cast<T>(r);
}

template <class T> T EstreitaValor(const Valor& v) {
    switch (v.tipo()) {
    case Valor::Tipo::Vazio:
        return 0;
    case Valor::Tipo::Inteiro:
        if (v.inteiro() < std::numeric_limits<T>::min() || v.inteiro() > std::numeric_limits<T>::max())
            throw ErroExecucao::Estouro();
        return static_cast<T>(v.inteiro());
    case Valor::Tipo::Duplo:
        return Estreita<T>(v.duplo());
    case Valor::Tipo::Logico:
        return v.logico() ? -1 : 0;
    case Valor::Tipo::Texto:
        return Estreita<T>(TextoParaNumero(v.texto()));
    case Valor::Tipo::Lista:
        break;
    }
    throw ErroExecucao::TiposIncompativeis();
}

} // namespace

int16_t CInt(double v) { return Estreita<int16_t>(v); }
int32_t CLng(double v) { return Estreita<int32_t>(v); }
int16_t CInt(const Valor& v) { return EstreitaValor<int16_t>(v); }
int32_t CLng(const Valor& v) { return EstreitaValor<int32_t>(v); }

double CDbl(const Valor& v) {
    switch (v.tipo()) {
    case Valor::Tipo::Vazio:
        return 0.0;
    case Valor::Tipo::Inteiro:
        return static_cast<double>(v.inteiro());
    case Valor::Tipo::Duplo:
        return v.duplo();
    case Valor::Tipo::Logico:
        return v.logico() ? -1.0 : 0.0;
    case Valor::Tipo::Texto:
        return TextoParaNumero(v.texto());
    case Valor::Tipo::Lista:
        break;
    }
    throw ErroExecucao::TiposIncompativeis();
}

bool CBool(const Valor& v) {
    if (v.tipo() == Valor::Tipo::Logico) return v.logico();
    if (v.tipo() == Valor::Tipo::Texto) {
        if (IguaisSemCaixa(v.texto(), "TRUE") || IguaisSemCaixa(v.texto(), "VERDADEIRO")) return true;
        if (IguaisSemCaixa(v.texto(), "FALSE") || IguaisSemCaixa(v.texto(), "FALSO")) return false;
    }
    return CDbl(v) != 0.0;
}

std::string TextoDecimal(int64_t v) { return std::to_string(v); }

std::string CStr(const Valor& v) {
    switch (v.tipo()) {
    case Valor::Tipo::Vazio:
        return {};
    case Valor::Tipo::Inteiro:
        return TextoDecimal(v.inteiro());
    case Valor::Tipo::Logico:
        return v.logico() ? "Verdadeiro" : "Falso";
    case Valor::Tipo::Texto:
        return v.texto();
    case Valor::Tipo::Duplo: {
        char buf[64];
        const char* fim = std::to_chars(buf, buf + sizeof buf, v.duplo(), std::chars_format::general, 15).ptr;
        // "1.5E+20" style, and the regional decimal separator.
        std::string r;
        r.reserve(static_cast<size_t>(fim - buf) + 2);
        for (const char* c = buf; c != fim; ++c) {
            if (*c == '.')
                r += RegiaoAtual().decimal;
            else
                r += *c == 'e' ? 'E' : *c;
        }
        return r;
    }
    case Valor::Tipo::Lista:
        break;
    }
    throw ErroExecucao::TiposIncompativeis();
}

} // namespace ztolvan
