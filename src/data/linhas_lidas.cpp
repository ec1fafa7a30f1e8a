#include "data/linhas_lidas.h"

namespace ztolvan {

void LinhasLidas::Inicia(size_t colunas) {
    fonte_.reset();
    colunas_ = colunas;
    celulas_.clear();
    texto_.clear();
}

void LinhasLidas::Texto(std::string_view t) {
    Cel c{Valor::Tipo::Texto, static_cast<uint32_t>(t.size()), {}};
    c.inicio = texto_.size();
    texto_.append(t);
    celulas_.push_back(c);
}

void LinhasLidas::Inteiro(int64_t v) {
    Cel c{Valor::Tipo::Inteiro, 0, {}};
    c.inteiro = v;
    celulas_.push_back(c);
}

void LinhasLidas::Duplo(double v) {
    Cel c{Valor::Tipo::Duplo, 0, {}};
    c.duplo = v;
    celulas_.push_back(c);
}

void LinhasLidas::Nulo() { celulas_.push_back(Cel{Valor::Tipo::Vazio, 0, {}}); }

void LinhasLidas::Poe(const Cel& c, Valor& v) const {
    switch (c.tipo) {
    case Valor::Tipo::Texto:
        PoeTexto(v, std::string_view(texto_).substr(c.inicio, c.tamanho));
        return;
    case Valor::Tipo::Inteiro:
        v = Valor(c.inteiro);
        return;
    case Valor::Tipo::Duplo:
        v = Valor(c.duplo);
        return;
    default:
        v = Valor();
    }
}

void LinhasLidas::PoeTexto(Valor& v, std::string_view t) {
    if (v.eTexto())
        v.texto().assign(t);
    else
        v = Valor(t);
}

void LinhasLidas::Copia(size_t linha, Valor::Lista& destino) const {
    if (fonte_) return fonte_->Copia(linha, destino);
    destino.resize(colunas_);
    const Cel* c = celulas_.data() + linha * colunas_;
    for (size_t i = 0; i < colunas_; ++i)
        Poe(c[i], destino[i]);
}

Valor::Lista LinhasLidas::operator[](size_t linha) const {
    Valor::Lista r;
    Copia(linha, r);
    return r;
}

} // namespace ztolvan
