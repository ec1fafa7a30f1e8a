#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/valor.h"

namespace ztolvan {

// The rows of a result as the database gave them; a row becomes values only
// when someone reads it. Either every cell in one list and every text in one
// buffer, so that reading many rows allocates nothing per row or per value,
// or a database kind's own result, kept whole (Fonte).
class LinhasLidas {
  public:
    // Rows a database kind keeps in its own form (a server's whole result,
    // already in memory), made into values one row at a time.
    class Fonte {
      public:
        virtual ~Fonte() = default;
        virtual size_t Linhas() const = 0;
        virtual void Copia(size_t linha, Valor::Lista& destino) const = 0;
    };

    // Empties the rows; each row from now on has 'colunas' cells.
    void Inicia(size_t colunas);
    // The rows are the source's from now on.
    void Adota(std::unique_ptr<Fonte> fonte) { fonte_ = std::move(fonte); }
    // The next cell of the row being read, in column order.
    void Texto(std::string_view t);
    void Inteiro(int64_t v);
    void Duplo(double v);
    void Nulo();

    size_t size() const {
        if (fonte_) return fonte_->Linhas();
        return colunas_ ? celulas_.size() / colunas_ : 0;
    }
    bool empty() const { return size() == 0; }
    // Row 'linha' into 'destino', whose values keep their storage.
    void Copia(size_t linha, Valor::Lista& destino) const;
    Valor::Lista operator[](size_t linha) const;

    // A text into a value, which keeps its storage when it holds a text.
    static void PoeTexto(Valor& v, std::string_view t);

  private:
    struct Cel {
        Valor::Tipo tipo;
        uint32_t tamanho; // a text's length
        union {
            int64_t inteiro;
            double duplo;
            size_t inicio; // a text's start in texto_
        };
    };
    void Poe(const Cel& c, Valor& v) const;

    std::unique_ptr<Fonte> fonte_;
    size_t colunas_ = 0;
    std::vector<Cel> celulas_;
    std::string texto_;
};

} // namespace ztolvan
