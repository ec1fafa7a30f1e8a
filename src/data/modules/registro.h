#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/conversao.h"
#include "common/texto.h"
#include "common/valor.h"

namespace ztolvan {

// A fixed-width text field of a record: every assignment cuts or pads to N
// characters (UTF-8 code points), so the field always holds exactly N.
template <size_t N> class Texto {
  public:
    static constexpr size_t Largura = N;

    Texto() : v_(N, ' ') {}
    Texto(std::string_view s) : v_(TextoFixo(s, N)) {}
    Texto(const char* s) : Texto(std::string_view(s)) {}
    Texto(const std::string& s) : Texto(std::string_view(s)) {}
    template <size_t M> Texto(const Texto<M>& o) : Texto(std::string_view(o.str())) {}

    Texto& operator=(std::string_view s) {
        v_ = TextoFixo(s, N);
        return *this;
    }
    Texto& operator=(const char* s) { return *this = std::string_view(s); }
    Texto& operator=(const std::string& s) { return *this = std::string_view(s); }
    template <size_t M> Texto& operator=(const Texto<M>& o) { return *this = std::string_view(o.str()); }

    const std::string& str() const { return v_; }
    operator const std::string&() const { return v_; }
    operator std::string_view() const { return v_; }

    friend bool operator==(const Texto& a, std::string_view b) { return a.v_ == b; }

  private:
    std::string v_;
};

// What a column keeps in its record.
enum class TipoCampo : uint8_t { Int16, Int32, Duplo, Texto };

// A converted numeric value on its way into a field.
union Numero {
    int64_t i;
    double d;
};

// One column of a record: its name in the statements, its field's type and
// width, and how to reach the field in a record given as an untyped pointer.
struct Coluna {
    std::string_view nome;
    TipoCampo tipo = TipoCampo::Texto;
    size_t largura = 0; // texts only

    // The field's value as sent to the database (texts with their blanks).
    Valor (*le)(const void* registro) = nullptr;
    // Stores a number already converted (and checked) for this field.
    void (*guardaNumero)(void* registro, Numero n) = nullptr;
    // Stores a text, cut or padded to the width.
    void (*guardaTexto)(void* registro, std::string_view s) = nullptr;
};

// A record declared as a table of columns, in the order of its statements.
struct TabelaColunas {
    std::string_view nome; // "A_MTBPAR"
    std::vector<Coluna> colunas;

    // Case-insensitive, as the statements spell names in either case.
    const Coluna* Acha(std::string_view nome) const;
    // "T1.Empresa, T1.RazSocial, ..." with the given prefix.
    std::string Lista(std::string_view prefixo = "") const;
    // Every field of a record of this table, in column order (texts with
    // their blanks): the record array of an insert.
    Valor::Lista Valores(const void* registro) const;
};

// Converts a value from a row into a column's type; ErroExecucao when it
// does not fit (out of range, not a number, an array).
Numero ConverteNumero(const Coluna& c, const Valor& v);

namespace detalhe {

template <class T> struct PonteiroMembro;
template <class R, class F> struct PonteiroMembro<F R::*> {
    using Registro = R;
    using Campo = F;
};

template <class F> struct InfoCampo;
template <> struct InfoCampo<int16_t> {
    static constexpr TipoCampo tipo = TipoCampo::Int16;
    static constexpr size_t largura = 0;
};
template <> struct InfoCampo<int32_t> {
    static constexpr TipoCampo tipo = TipoCampo::Int32;
    static constexpr size_t largura = 0;
};
template <> struct InfoCampo<double> {
    static constexpr TipoCampo tipo = TipoCampo::Duplo;
    static constexpr size_t largura = 0;
};
template <size_t N> struct InfoCampo<Texto<N>> {
    static constexpr TipoCampo tipo = TipoCampo::Texto;
    static constexpr size_t largura = N;
};

} // namespace detalhe

// The column of member M, named as the statements name it; type and width
// come from the member's declaration.
template <auto M> Coluna Col(std::string_view nome) {
    using P = detalhe::PonteiroMembro<decltype(M)>;
    using R = typename P::Registro;
    using F = typename P::Campo;
    using I = detalhe::InfoCampo<F>;
    Coluna c;
    c.nome = nome;
    c.tipo = I::tipo;
    c.largura = I::largura;
    if constexpr (I::tipo == TipoCampo::Texto) {
        c.le = [](const void* r) { return Valor((static_cast<const R*>(r)->*M).str()); };
        c.guardaTexto = [](void* r, std::string_view s) { static_cast<R*>(r)->*M = s; };
    } else if constexpr (I::tipo == TipoCampo::Duplo) {
        c.le = [](const void* r) { return Valor(static_cast<const R*>(r)->*M); };
        c.guardaNumero = [](void* r, Numero n) { static_cast<R*>(r)->*M = n.d; };
    } else {
        c.le = [](const void* r) { return Valor(static_cast<int64_t>(static_cast<const R*>(r)->*M)); };
        c.guardaNumero = [](void* r, Numero n) { static_cast<R*>(r)->*M = static_cast<F>(n.i); };
    }
    return c;
}

// What every module record starts with: the function code that picks the
// statement and the command word of the call.
struct RegistroModulo {
    std::string Funcao;
    std::string Transacao;
};

// Declares a record once: X(name, type) per column, in statement order.
// ZT_REGISTRO gives the struct (with Funcao and Transacao first) and
// ZT_TABELA, in one source file, its table of columns.
#define ZT_MEMBRO_(nome, tipo) tipo nome{};
#define ZT_COLUNA_(nome, tipo) ::ztolvan::Col<&Registro_::nome>(#nome),

#define ZT_REGISTRO(Tipo, COLUNAS)                                                                           \
    struct Tipo : ::ztolvan::RegistroModulo {                                                                \
        COLUNAS(ZT_MEMBRO_)                                                                                  \
        static const ::ztolvan::TabelaColunas& Colunas();                                                    \
    };

#define ZT_CHAVE(Tipo, COLUNAS)                                                                              \
    struct Tipo {                                                                                            \
        COLUNAS(ZT_MEMBRO_)                                                                                  \
        static const ::ztolvan::TabelaColunas& Colunas();                                                    \
    };

#define ZT_TABELA(Tipo, Nome, COLUNAS)                                                                       \
    const ::ztolvan::TabelaColunas& Tipo::Colunas() {                                                        \
        using Registro_ = Tipo;                                                                              \
        static const ::ztolvan::TabelaColunas t{Nome, {COLUNAS(ZT_COLUNA_)}};                                \
        return t;                                                                                            \
    }

} // namespace ztolvan
