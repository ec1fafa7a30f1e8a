#include "common/contexto.h"

#include <atomic>

namespace ztolvan {
namespace {
thread_local std::unique_ptr<Contexto> atual;
}

Contexto::~Contexto() {
    for (auto it = ordem_.rbegin(); it != ordem_.rend(); ++it)
        partes_[*it].reset();
}

Contexto& Contexto::Atual() {
    if (!atual) atual = std::make_unique<Contexto>();
    return *atual;
}

void Contexto::Renova() { atual.reset(); }

size_t Contexto::NovoId() {
    static std::atomic<size_t> proximo{0};
    return proximo++;
}

} // namespace ztolvan
