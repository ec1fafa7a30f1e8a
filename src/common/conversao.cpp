#include "common/conversao.h"

#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "common/erro.h"
#include "common/regiao.h"
#include "common/texto.h"

namespace ztolvan {

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
    std::string num = limpo.substr(0, fim);
    double v = std::strtod(num.c_str(), nullptr);
    if (std::isinf(v)) throw ErroExecucao::Estouro();
    return v;
}

namespace {

// The number at the start of v in the regional conventions; 'lidos' is how
// many characters it took (0 when none).
double NumeroRegionalNoInicio(std::string_view v, size_t& lidos) {
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
    errno = 0;
    double d = std::strtod(t.c_str(), nullptr);
    if (std::isinf(d)) throw ErroExecucao::Estouro();
    return d;
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
    return NumeroRegionalNoInicio(SemBrancosNasPontas(s), lidos);
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
        std::snprintf(buf, sizeof buf, "%.15G", v.duplo());
        std::string s = buf;
        // "1.5E+20" style, and the regional decimal separator.
        size_t e = s.find('E');
        std::string mantissa = e == std::string::npos ? s : s.substr(0, e);
        std::string expoente = e == std::string::npos ? "" : s.substr(e);
        size_t p = mantissa.find('.');
        if (p != std::string::npos) mantissa.replace(p, 1, RegiaoAtual().decimal);
        return mantissa + expoente;
    }
    case Valor::Tipo::Lista:
        break;
    }
    throw ErroExecucao::TiposIncompativeis();
}

} // namespace ztolvan
