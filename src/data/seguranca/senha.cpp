#include "data/seguranca/senha.h"

#include <crypt.h>
#include <memory>

namespace ztolvan {
namespace {

// crypt_r signals failure with a text starting with '*' (or a null pointer).
bool HashValido(const char* h) { return h && h[0] == '$'; }

std::string Aplica(const std::string& senha, const char* configuracao) {
    // crypt_data is large (tens of KiB): on the heap, zeroed as crypt_r wants.
    auto dados = std::make_unique<crypt_data>();
    const char* h = crypt_r(senha.c_str(), configuracao, dados.get());
    return HashValido(h) ? std::string(h) : std::string();
}

} // namespace

std::string GeraHashSenha(const std::string& Senha) {
    if (Senha.empty()) return {};
    char sal[CRYPT_GENSALT_OUTPUT_SIZE];
    // Random bytes from the system (null rbytes); yescrypt first.
    for (const char* prefixo : {"$y$", "$6$"}) {
        if (crypt_gensalt_rn(prefixo, 0, nullptr, 0, sal, sizeof sal) && HashValido(sal)) {
            std::string h = Aplica(Senha, sal);
            if (!h.empty()) return h;
        }
    }
    return {};
}

bool ConfereSenha(const std::string& Senha, const std::string& Hash) {
    if (Senha.empty() || !HashValido(Hash.c_str())) return false;
    const std::string h = Aplica(Senha, Hash.c_str());
    if (h.size() != Hash.size()) return false;
    // Every character is compared, so the time taken tells nothing.
    unsigned char diferenca = 0;
    for (size_t i = 0; i < h.size(); ++i)
        diferenca |= static_cast<unsigned char>(h[i] ^ Hash[i]);
    return diferenca == 0;
}

} // namespace ztolvan
