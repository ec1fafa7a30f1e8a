#include "common/formato.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "common/conversao.h"
#include "common/erro.h"
#include "common/regiao.h"
#include "common/texto.h"

namespace ztolvan {
namespace {

struct PadraoNumerico {
    std::string prefixo, sufixo;
    int zerosInteiros = 0;     // minimum integer digits
    int decimaisFixos = 0;     // '0' after the point
    int decimaisOpcionais = 0; // '#' after the point
    bool ponto = false;
    bool milhar = false;
};

PadraoNumerico Analisa(std::string_view p) {
    PadraoNumerico r;
    size_t ini = p.find_first_of("#0.,");
    size_t fim = p.find_last_of("#0.,");
    if (ini == std::string_view::npos) {
        r.prefixo = std::string(p);
        return r;
    }
    r.prefixo = std::string(p.substr(0, ini));
    r.sufixo = std::string(p.substr(fim + 1));
    bool depois = false;
    for (char c : p.substr(ini, fim - ini + 1)) {
        if (c == '.') {
            depois = r.ponto = true;
        } else if (c == ',') {
            if (!depois) r.milhar = true;
        } else if (c == '0') {
            if (depois)
                ++r.decimaisFixos;
            else
                ++r.zerosInteiros;
        } else if (c == '#') {
            if (depois) ++r.decimaisOpcionais;
        }
    }
    return r;
}

// Decimal digits of |v| rounded half away from zero at 'casas' decimals,
// working on the 15-significant-digit decimal form so that 2.675 shows as 2.68.
std::string Digitos(double v, int casas) {
    char buf[64];
    auto fim = std::to_chars(buf, buf + sizeof buf - 1, std::fabs(v), std::chars_format::scientific, 14).ptr;
    *fim = '\0';
    // buf = d.dddddddddddddde±XX
    std::string mant;
    mant.push_back(buf[0]);
    mant.append(buf + 2, 14);
    int exp10 = std::atoi(std::strchr(buf, 'e') + 1);
    // Value = 0.mant * 10^(exp10+1); digits before the point: exp10+1.
    int intDigits = exp10 + 1;
    int keep = intDigits + casas; // digits of mant to keep
    std::string digits;
    if (keep < 0) return std::string(1, '0') + std::string(casas, '0');
    bool arredondaCima = keep < static_cast<int>(mant.size()) && mant[keep] >= '5';
    if (keep <= static_cast<int>(mant.size())) {
        digits = mant.substr(0, keep);
    } else {
        digits = mant + std::string(keep - mant.size(), '0');
    }
    if (arredondaCima) {
        int i = static_cast<int>(digits.size()) - 1;
        while (i >= 0 && digits[i] == '9')
            digits[i--] = '0';
        if (i >= 0)
            ++digits[i];
        else {
            digits.insert(digits.begin(), '1');
            ++intDigits;
        }
    }
    // Pad to have at least one integer digit.
    int totalInt = static_cast<int>(digits.size()) - casas;
    if (totalInt <= 0) {
        digits.insert(0, std::string(1 - totalInt, '0'));
    }
    return digits; // integer digits followed by 'casas' decimals
}

std::string Agrupa(const std::string& inteiro, const std::string& sep) {
    std::string r;
    int n = static_cast<int>(inteiro.size());
    for (int i = 0; i < n; ++i) {
        r.push_back(inteiro[i]);
        int resto = n - 1 - i;
        if (resto > 0 && resto % 3 == 0) r += sep;
    }
    return r;
}

std::string FormataTexto(std::string_view s, std::string_view padrao) {
    size_t arrobas = 0;
    for (char c : padrao)
        if (c == '@') ++arrobas;
    size_t largura = Largura(s);
    if (largura >= arrobas) return std::string(s);
    return std::string(arrobas - largura, ' ') + std::string(s);
}

bool PadraoDeTexto(std::string_view p) { return p.find('@') != std::string_view::npos; }

} // namespace

std::string Formata(double v, std::string_view padrao) {
    if (PadraoDeTexto(padrao)) return FormataTexto(CStr(Valor(v)), padrao);
    if (!std::isfinite(v)) throw ErroExecucao::Estouro();
    PadraoNumerico p = Analisa(padrao);
    int casas = p.decimaisFixos + p.decimaisOpcionais;
    std::string d = Digitos(v, casas);
    std::string inteiro = d.substr(0, d.size() - casas);
    std::string decimais = d.substr(d.size() - casas);
    // Optional decimals drop their trailing zeros.
    while (static_cast<int>(decimais.size()) > p.decimaisFixos && decimais.back() == '0')
        decimais.pop_back();
    size_t nz = inteiro.find_first_not_of('0');
    inteiro = nz == std::string::npos ? "" : inteiro.substr(nz);
    if (static_cast<int>(inteiro.size()) < p.zerosInteiros)
        inteiro.insert(0, std::string(p.zerosInteiros - inteiro.size(), '0'));
    bool zero = inteiro.find_first_not_of('0') == std::string::npos &&
                decimais.find_first_not_of('0') == std::string::npos;
    const Regiao& r = RegiaoAtual();
    std::string corpo = p.milhar ? Agrupa(inteiro, r.milhar) : inteiro;
    if (p.ponto && (!decimais.empty() || p.decimaisFixos > 0))
        corpo += r.decimal + decimais;
    else if (p.ponto && decimais.empty() && p.decimaisOpcionais > 0)
        corpo += r.decimal;
    std::string sinal = (v < 0 && !zero) ? "-" : "";
    return sinal + p.prefixo + corpo + p.sufixo;
}

std::string Formata(const Valor& v, std::string_view padrao) {
    if (PadraoDeTexto(padrao)) return FormataTexto(CStr(v), padrao);
    if (v.eTexto()) {
        try {
            return Formata(TextoParaNumero(v.texto()), padrao);
        } catch (const ErroExecucao&) {
            return v.texto();
        }
    }
    if (v.vazio()) return {};
    return Formata(CDbl(v), padrao);
}

std::string FormataMoeda(double v) {
    // "#,##0.00" built straight into one string, with no pattern to parse:
    // an item grid formats two values a row.
    if (!std::isfinite(v)) throw ErroExecucao::Estouro();
    const Regiao& r = RegiaoAtual();
    const std::string d = Digitos(v, 2);
    const size_t fimInteiro = d.size() - 2;
    size_t ini = d.find_first_not_of('0');
    if (ini == std::string::npos || ini >= fimInteiro) ini = fimInteiro - 1; // at least one digit: "0"
    std::string s;
    s.reserve(r.moeda.size() + 2 + (fimInteiro - ini) * 2 + r.decimal.size() + 2);
    if (v < 0 && std::round(std::fabs(v) * 100.0) != 0.0) s += '-';
    if (!r.moeda.empty()) {
        s += r.moeda;
        s += ' ';
    }
    for (size_t i = ini; i < fimInteiro; ++i) {
        s += d[i];
        const size_t resto = fimInteiro - 1 - i;
        if (resto > 0 && resto % 3 == 0) s += r.milhar;
    }
    s += r.decimal;
    s.append(d, fimInteiro, 2);
    return s;
}

} // namespace ztolvan
