#include "saida.h"

#include <cstdio>
#include <sstream>
#include <utility>
#include <vector>

#include "common/conversao.h"

namespace ztolvan {
namespace {

using Campos = std::vector<std::pair<std::string, Valor>>;

Campos CamposDoResultado(const Resultado& r) {
    return {{"ZCodigo", Valor(static_cast<int64_t>(r.ZCodigo))},
            {"Zstatusret", Valor(static_cast<int64_t>(r.Zstatusret))},
            {"zstatus", Valor(static_cast<int64_t>(r.zstatus))},
            {"zstatusmens", Valor(r.zstatusmens)},
            {"ZDadosVendas", r.ZDadosVendas}};
}

Campos CamposDaSessao(const Sessao& s) {
    auto n = [](int64_t v) { return Valor(v); };
    return {{"Empresa", n(s.Empresa)},
            {"Operador", s.Operador},
            {"Origem", s.Origem},
            {"OrigemDocumento", Valor(s.OrigemDocumento)},
            {"NumDoc", n(s.NumDoc)},
            {"TpMov", n(s.TpMov)},
            {"NatOper", n(s.NatOper)},
            {"DadosVenda1", s.DadosVenda1},
            {"DadosVenda2", n(s.DadosVenda2)},
            {"DadosVenda3", s.DadosVenda3},
            {"DadosVenda4", s.DadosVenda4},
            {"DadosVenda5", s.DadosVenda5},
            {"DadosVenda6", s.DadosVenda6},
            {"CodFor", n(s.CodFor)},
            {"StatusRet", n(s.StatusRet)},
            {"EmpresaOrigem", n(s.EmpresaOrigem)},
            {"EmpresaConsulta", n(s.EmpresaConsulta)},
            {"EmpresaPreco", n(s.EmpresaPreco)},
            {"TipoPreco", s.TipoPreco},
            {"PrecoVenda", n(s.PrecoVenda)},
            {"TipoPrecoCompra", s.TipoPrecoCompra},
            {"BloqueiaItens", s.BloqueiaItens},
            {"CustoPrecoEmpresaOrigem", s.CustoPrecoEmpresaOrigem},
            {"TamanhoCodigoItem", s.TamanhoCodigoItem},
            {"Versao", s.Versao}};
}

std::string Texto(const Valor& v) {
    if (v.eLista()) {
        std::string r;
        for (size_t i = 0; i < v.tamanho(); ++i)
            r += (i ? "," : "") + Texto(v[i]);
        return r;
    }
    if (v.tipo() == Valor::Tipo::Logico) return v.logico() ? "true" : "false";
    if (v.tipo() == Valor::Tipo::Duplo) {
        char b[40];
        std::snprintf(b, sizeof b, "%.15g", v.duplo());
        return b;
    }
    return CStr(v);
}

std::string Json(const Valor& v) {
    switch (v.tipo()) {
    case Valor::Tipo::Vazio:
        return "null";
    case Valor::Tipo::Inteiro:
    case Valor::Tipo::Duplo:
    case Valor::Tipo::Logico:
        return Texto(v);
    case Valor::Tipo::Lista: {
        std::string r = "[";
        for (size_t i = 0; i < v.tamanho(); ++i)
            r += (i ? "," : "") + Json(v[i]);
        return r + "]";
    }
    case Valor::Tipo::Texto:
        break;
    }
    std::string r = "\"";
    for (unsigned char c : v.texto()) {
        if (c == '"' || c == '\\') {
            r += '\\';
            r += static_cast<char>(c);
        } else if (c < 0x20) {
            char b[8];
            std::snprintf(b, sizeof b, "\\u%04x", c);
            r += b;
        } else {
            r += static_cast<char>(c);
        }
    }
    return r + "\"";
}

std::string Objeto(const Campos& campos) {
    std::string r = "{";
    for (size_t i = 0; i < campos.size(); ++i)
        r += (i ? ", " : "") + Json(Valor(campos[i].first)) + ": " + Json(campos[i].second);
    return r + "}";
}

} // namespace

std::string ComoTexto(const Resultado& r) {
    std::ostringstream o;
    for (auto& [k, v] : CamposDoResultado(r))
        o << k << ": " << Texto(v) << "\n";
    if (r.sessao) {
        o << "Sessao:\n";
        for (auto& [k, v] : CamposDaSessao(*r.sessao))
            o << "  " << k << ": " << Texto(v) << "\n";
    }
    return o.str();
}

std::string ComoJson(const Resultado& r) {
    Campos c = CamposDoResultado(r);
    std::string o = Objeto(c);
    if (r.sessao) {
        o.pop_back();
        o += ", \"Sessao\": " + Objeto(CamposDaSessao(*r.sessao)) + "}";
    }
    return o + "\n";
}

} // namespace ztolvan
