#include "componente/saida.h"

#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>
#include <vector>

#include "common/conversao.h"

namespace ztolvan {
namespace {

using Campos = std::vector<std::pair<std::string, Valor>>;

Campos CamposDoResultado(const Resultado& r) {
    Campos c = {{"ZCodigo", Valor(static_cast<int64_t>(r.ZCodigo))},
                {"Zstatusret", Valor(static_cast<int64_t>(r.Zstatusret))},
                {"zstatus", Valor(static_cast<int64_t>(r.zstatus))},
                {"zstatusmens", Valor(r.zstatusmens)}};
    // ZDadosVendas is an answer only when the call says so (Zstatusret 0);
    // otherwise it holds whatever an earlier call or the host left there.
    if (r.Zstatusret == 0) c.emplace_back("ZDadosVendas", r.ZDadosVendas);
    return c;
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
    if (v.tipo() == Valor::Tipo::Duplo) return EscreveNumero(v.duplo(), 15);
    return CStr(v);
}

using Json = nlohmann::ordered_json;

Json ComoJsonDe(const Valor& v) {
    switch (v.tipo()) {
    case Valor::Tipo::Vazio:
        return nullptr;
    case Valor::Tipo::Inteiro:
        return v.inteiro();
    case Valor::Tipo::Duplo:
        return v.duplo();
    case Valor::Tipo::Logico:
        return v.logico();
    case Valor::Tipo::Texto:
        return v.texto();
    case Valor::Tipo::Lista:
        break;
    }
    Json r = Json::array();
    for (const Valor& x : v.lista())
        r.push_back(ComoJsonDe(x));
    return r;
}

Json Objeto(const Campos& campos) {
    Json r = Json::object();
    for (const auto& [k, v] : campos)
        r[k] = ComoJsonDe(v);
    return r;
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
    if (r.itens) {
        o << "itens:";
        for (size_t i = 0; i < r.itens->size(); ++i)
            o << (i ? "," : " ") << (*r.itens)[i];
        o << "\n";
    }
    if (r.linhas) {
        if (r.simulacao) o << "prévia: nada foi gravado\n";
        for (const LinhaGerada& l : *r.linhas)
            o << "  item " << l.item << " " << l.produto << " qtd " << EscreveNumero(l.quantidade) << " x "
              << EscreveNumero(l.valorUnitario) << " SitTrib " << l.sitTrib << " ICMS " << EscreveNumero(l.percICMS)
              << " ST " << EscreveNumero(l.percICMSST) << " IPI " << EscreveNumero(l.percIPI) << " = "
              << EscreveNumero(l.total) << "\n";
        o << "total: " << EscreveNumero(TotalDasLinhas(*r.linhas)) << "\n";
    }
    return o.str();
}

std::string ComoJson(const Resultado& r) {
    Json o = Objeto(CamposDoResultado(r));
    if (r.sessao) o["Sessao"] = Objeto(CamposDaSessao(*r.sessao));
    if (r.mensagens) {
        Json m = Json::array();
        for (const MensagemMostrada& x : *r.mensagens)
            m.push_back({{"Texto", x.Texto}, {"Tipo", x.Tipo}, {"Titulo", x.Titulo}, {"Detalhe", x.Detalhe}});
        o["mensagens"] = std::move(m);
    }
    if (r.itens) o["itens"] = *r.itens;
    if (r.linhas) {
        Json ls = Json::array();
        for (const LinhaGerada& l : *r.linhas) {
            ls.push_back({{"Item", l.item},
                          {"Produto", l.produto},
                          {"Descricao", l.descricao},
                          {"Quantidade", l.quantidade},
                          {"ValorUnitario", l.valorUnitario},
                          {"SitTrib", l.sitTrib},
                          {"PercICMS", l.percICMS},
                          {"PercICMSST", l.percICMSST},
                          {"PercIPI", l.percIPI},
                          {"Total", l.total}});
            if (!l.explicacao.empty()) ls.back()["explicacao"] = Objeto(l.explicacao);
        }
        o["linhas"] = std::move(ls);
        o["total"] = TotalDasLinhas(*r.linhas);
        o["simulacao"] = r.simulacao;
    }
    // A text that is not valid UTF-8 (a database may hold one) is shown with
    // replacement characters rather than failing the whole answer.
    return o.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string ErroComoJson(const std::string& texto) {
    return Json{{"erro", texto}}.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string ComoTexto(const estoque::Disponibilidade& d) {
    std::ostringstream o;
    o << "produto\tnecessidade\tlivre\tpermite\tdescricao\n";
    for (const estoque::ItemDisponivel& i : d.itens)
        o << (i.produto.empty() ? "-" : i.produto) << "\t" << EscreveNumero(i.necessidade) << "\t"
          << (i.livre ? EscreveNumero(*i.livre) : "sem cadastro") << "\t"
          << (i.permite ? std::to_string(*i.permite) : "-") << (i.limitante ? " *" : "") << "\t" << i.descricao
          << "\n";
    o << "agrupamentos: " << (d.agrupamentos ? std::to_string(*d.agrupamentos) : "sem limite") << "\n";
    o << estoque::TextoDisponibilidade(d) << "\n";
    return o.str();
}

std::string ComoJson(const estoque::Disponibilidade& d) {
    Json itens = Json::array();
    for (const estoque::ItemDisponivel& i : d.itens)
        itens.push_back({{"produto", i.produto},
                         {"descricao", i.descricao},
                         {"necessidade", i.necessidade},
                         {"livre", i.livre ? Json(*i.livre) : Json(nullptr)},
                         {"permite", i.permite ? Json(*i.permite) : Json(nullptr)},
                         {"limitante", i.limitante}});
    Json o = {{"agrupamentos", d.agrupamentos ? Json(*d.agrupamentos) : Json(nullptr)},
              {"itens", std::move(itens)},
              {"texto", estoque::TextoDisponibilidade(d)}};
    return o.dump(2) + "\n";
}

} // namespace ztolvan
