#include "data/modules/modulo.h"

#include <array>
#include <exception>

#include "common/conversao.h"
#include "common/erro.h"
#include "common/mensagens.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/despachante.h"

namespace ztolvan::modulos {
namespace {

bool EhLetraDeNome(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

// Position of a keyword surrounded by blanks, any case, from 'de' on.
size_t AchaPalavra(std::string_view texto, std::string_view palavra, size_t de = 0) {
    for (size_t i = de; i + palavra.size() <= texto.size(); ++i) {
        if (!IguaisSemCaixa(texto.substr(i, palavra.size()), palavra)) continue;
        const bool antes = i == 0 || !EhLetraDeNome(texto[i - 1]);
        const bool depois = i + palavra.size() == texto.size() || !EhLetraDeNome(texto[i + palavra.size()]);
        if (antes && depois) return i;
    }
    return std::string_view::npos;
}

// The comma-separated items of a column list.
std::vector<std::string_view> Itens(std::string_view lista) {
    std::vector<std::string_view> r;
    for (size_t de = 0; de <= lista.size();) {
        size_t virgula = lista.find(',', de);
        if (virgula == std::string_view::npos) virgula = lista.size();
        r.push_back(lista.substr(de, virgula - de));
        de = virgula + 1;
    }
    return r;
}

// Splits "T1.Nome" into alias and name.
std::pair<std::string, std::string> AliasENome(std::string_view item) {
    std::string s = Apara(item);
    size_t p = s.find('.');
    if (p == std::string::npos) return {std::string(), s};
    return {s.substr(0, p), s.substr(p + 1)};
}

// Positions of the "?" placeholders outside quoted literals.
std::vector<size_t> Marcadores(std::string_view texto) {
    std::vector<size_t> r;
    bool aspas = false;
    for (size_t i = 0; i < texto.size(); ++i) {
        if (texto[i] == '\'')
            aspas = !aspas;
        else if (!aspas && texto[i] == '?')
            r.push_back(i);
    }
    return r;
}

// The column compared with the "?" at pos: "T1.Item  >= ?" gives "Item".
std::string NomeAntesDe(std::string_view texto, size_t pos) {
    size_t i = pos;
    while (i > 0 && texto[i - 1] == ' ')
        --i;
    while (i > 0 &&
           (texto[i - 1] == '=' || texto[i - 1] == '<' || texto[i - 1] == '>' || texto[i - 1] == '!'))
        --i;
    while (i > 0 && texto[i - 1] == ' ')
        --i;
    size_t fim = i;
    while (i > 0 && EhLetraDeNome(texto[i - 1]))
        --i;
    return std::string(texto.substr(i, fim - i));
}

Ref Resolve(const std::vector<Alvo>& alvos, size_t alvo, const std::string& nome, Manipulador& m) {
    Ref r;
    r.alvo = static_cast<uint8_t>(alvo);
    r.coluna = alvo < alvos.size() ? alvos[alvo].tabela().Acha(nome) : nullptr;
    if (!r.coluna) m.naoResolvidos.push_back(m.funcao + ": " + nome);
    return r;
}

void ParametrosPorNome(Manipulador& m, size_t inicioChave, size_t alvoAntes, size_t alvoDepois) {
    for (size_t pos : Marcadores(m.texto)) {
        const size_t alvo = pos < inicioChave ? alvoAntes : alvoDepois;
        m.parametros.push_back(Resolve(m.alvos, alvo, NomeAntesDe(m.texto, pos), m));
    }
}

std::string Mensagem(const DefinicaoModulo& d, std::string_view prefixo) {
    std::string t = std::string(prefixo) + "Chamada de " + (prefixo.empty() ? "funcao" : "transacao") +
                    " Invalida no modulo = " + d.NomeRegistro();
    return d.maiusculas ? Maiusculas(t) : t;
}

// Shows a value from a row in a failure message; never throws.
std::string MostraValor(const Valor& v) {
    if (v.eLista()) return "(lista)";
    try {
        return "'" + CStr(v) + "'";
    } catch (...) {
        return "?";
    }
}

// Where a handler's targets live on this thread.
struct Bases {
    std::array<void*, 4> p{};
    explicit Bases(const Manipulador& m) {
        for (size_t i = 0; i < m.alvos.size() && i < p.size(); ++i)
            p[i] = m.alvos[i].instancia();
    }
};

Valor::Lista Valores(const std::vector<Ref>& refs, const Bases& b) {
    Valor::Lista v;
    v.reserve(refs.size());
    for (const Ref& r : refs)
        v.push_back(r.coluna ? r.coluna->le(b.p[r.alvo]) : Valor());
    return v;
}

// Moves the current row into the targets, all or nothing: every value is
// converted first, so a value that does not fit leaves every record as it
// was and the call ends with "99" naming the column.
void MoveLinha(const Manipulador& m, const Bases& b, Comunica& c) {
    constexpr size_t Max = 128;
    std::array<Numero, Max> numeros{};
    const size_t n = m.destinos.size() < Max ? m.destinos.size() : Max;
    size_t i = 0;
    try {
        for (; i < n; ++i)
            if (m.destinos[i].coluna) numeros[i] = ConverteNumero(*m.destinos[i].coluna, c.Retorno[i]);
    } catch (const std::exception& e) {
        const Ref& r = m.destinos[i];
        const bool temValor = c.Retorno.eLista() && i < c.Retorno.tamanho();
        c.Status = status::Falha;
        c.Msg = "Linha não cabe em " + std::string(m.alvos[r.alvo].tabela().nome) + ": coluna " +
                std::string(r.coluna->nome) +
                (temValor ? " = " + MostraValor(c.Retorno[i]) : std::string(" ausente da linha")) + " (" +
                e.what() + ")";
        return;
    }
    for (i = 0; i < n; ++i) {
        const Ref& r = m.destinos[i];
        if (!r.coluna) continue;
        void* base = b.p[r.alvo];
        if (r.coluna->tipo != TipoCampo::Texto) {
            r.coluna->guardaNumero(base, numeros[i]);
        } else {
            const Valor& v = c.Retorno[i];
            if (v.eTexto())
                r.coluna->guardaTexto(base, v.texto());
            else
                r.coluna->guardaTexto(base, CStr(v));
        }
    }
}

void RodaSelect(const DefinicaoModulo& d, const Manipulador& m, const std::string& palavra, Comunica& c) {
    const Bases b(m);
    if (palavra == "OPEN" || palavra == "REQUERY" || palavra == "EXECUTE") {
        c.Dados = Valores(m.parametros, b);
        ExecutaComunica();
        if (c.Status == status::Ok) MoveLinha(m, b, c);
    } else if (palavra == "NEXT" || palavra == "PREV" || palavra == "FIRST" || palavra == "LAST") {
        ExecutaComunica();
        if (c.Status == status::Ok) MoveLinha(m, b, c);
    } else if (palavra == "#INSERT" || palavra == "#UPDATE") {
        c.Dados = Valores(m.destinos, b);
        ExecutaComunica();
    } else if (palavra == "#DELETE" || palavra == "CLOSE") {
        ExecutaComunica();
    } else {
        MostraMensagem(Mensagem(d, "select = "), msg::OK, "");
    }
}

void Roda(const DefinicaoModulo& d, size_t indice, RegistroModulo& reg, const std::string& palavra) {
    const Manipulador& m = d.manipuladores[indice];
    Comunica& c = ComunicaAtual();
    int16_t& slot = Contexto::Atual().Parte<TabelaCursores>().slots[d.indice][indice];
    if (slot == 0) {
        PreparaComando(m.texto);
        slot = c.Cursor;
    }
    if (c.Status != status::Ok) return;
    c.Transacao = reg.Transacao;
    c.Cursor = slot;
    if (m.acao == Acao::Seleciona) {
        RodaSelect(d, m, palavra, c);
    } else if (palavra == "EXECUTE") {
        c.Dados = Valores(m.parametros, Bases(m));
        ExecutaComunica();
    } else {
        MostraMensagem(Mensagem(d, m.acao == Acao::Insere ? "insert = " : "update = "), msg::OK, "");
    }
}

} // namespace

Manipulador Seleciona(std::string funcao, std::string texto,
                      std::vector<std::pair<std::string, Alvo>> apelidos, Alvo chave) {
    Manipulador m;
    m.funcao = std::move(funcao);
    m.acao = Acao::Seleciona;
    m.texto = std::move(texto);
    for (auto& a : apelidos)
        m.alvos.push_back(a.second);
    m.alvos.push_back(chave);
    const size_t alvoChave = m.alvos.size() - 1;

    const size_t ini = AchaPalavra(m.texto, "SELECT");
    const size_t fim = AchaPalavra(m.texto, "FROM", ini);
    if (ini == std::string::npos || fim == std::string::npos) {
        m.naoResolvidos.push_back(m.funcao + ": sem SELECT ... FROM");
        return m;
    }
    for (std::string_view item : Itens(std::string_view(m.texto).substr(ini + 6, fim - ini - 6))) {
        auto [alias, nome] = AliasENome(item);
        size_t alvo = 99; // no such alias: unresolved
        for (size_t k = 0; k < apelidos.size(); ++k)
            if (IguaisSemCaixa(apelidos[k].first, alias)) alvo = k;
        m.destinos.push_back(Resolve(m.alvos, alvo, nome, m));
    }
    ParametrosPorNome(m, 0, alvoChave, alvoChave);
    return m;
}

Manipulador Insere(std::string funcao, std::string texto, Alvo registro) {
    Manipulador m;
    m.funcao = std::move(funcao);
    m.acao = Acao::Insere;
    m.texto = std::move(texto);
    m.alvos.push_back(registro);
    const size_t abre = m.texto.find('('), fecha = m.texto.find(')');
    if (abre == std::string::npos || fecha == std::string::npos || fecha < abre) {
        m.naoResolvidos.push_back(m.funcao + ": sem lista de colunas");
        return m;
    }
    for (std::string_view item : Itens(std::string_view(m.texto).substr(abre + 1, fecha - abre - 1)))
        m.parametros.push_back(Resolve(m.alvos, 0, Apara(item), m));
    if (Marcadores(m.texto).size() != m.parametros.size())
        m.naoResolvidos.push_back(m.funcao + ": colunas e marcadores em número diferente");
    return m;
}

Manipulador Altera(std::string funcao, std::string texto, Alvo registro, Alvo chave) {
    Manipulador m;
    m.funcao = std::move(funcao);
    m.acao = Acao::Altera;
    m.texto = std::move(texto);
    m.alvos = {registro, chave};
    ParametrosPorNome(m, AchaPalavra(m.texto, "WHERE"), 0, 1);
    return m;
}

std::string SelectDe(const TabelaColunas& t, std::string_view prefixo, std::string_view resto) {
    return "SELECT " + t.Lista(prefixo) + " " + std::string(resto);
}

std::string InsertDe(std::string_view tabela, const TabelaColunas& t) {
    std::string marcadores;
    for (size_t i = 0; i < t.colunas.size(); ++i)
        marcadores += i ? ", ?" : "?";
    return "INSERT INTO " + std::string(tabela) + " (" + t.Lista() + " ) VALUES (" + marcadores + " )";
}

void Executa(const DefinicaoModulo& d) {
    Comunica& c = ComunicaAtual();
    RegistroModulo& reg = d.registro();
    c.Transacao.clear();
    c.Cursor = 0;
    c.Status = status::Ok;
    c.Dados = std::string();
    c.Retorno = std::string();
    const std::string palavra = Apara(reg.Transacao);
    if (palavra == "COMMIT" || palavra == "ROLLBACK") {
        c.Transacao = palavra;
        ExecutaComunica();
        return;
    }
    const std::string funcao = Apara(reg.Funcao);
    for (size_t i = 0; i < d.manipuladores.size(); ++i) {
        if (d.manipuladores[i].funcao == funcao) {
            Roda(d, i, reg, palavra);
            return;
        }
    }
    MostraMensagem(Mensagem(d, ""), msg::OK, "");
}

} // namespace ztolvan::modulos
