// A point-of-sale host as small as it gets: loads the library by path, asks
// for the price screen (option 1, origin F) and prints what came back, the
// sales-data text whole on its own line, then Zstatusret. The connection comes
// from the settings file named by ZTOLVAN_CONFIG. Given a buffer size, the
// text is taken in that many bytes, cut as it comes, and its full length
// printed too.
//   host_pdv [libztolvan.so [bytes]]
#include <dlfcn.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ztolvan/ztolvan.h"

// Qt comes in with the library, so its TLS is dynamic; the sanitizer
// runtime of this compiler misreads such blocks while scanning for leaks and
// its tracer crashes at exit. Without the sanitizer nothing calls this.
extern "C" const char* __asan_default_options() { return "intercept_tls_get_addr=0"; }

int main(int argc, char** argv) {
    const char* caminho = argc > 1 ? argv[1] : LIBZTOLVAN;
    void* lib = dlopen(caminho, RTLD_NOW | RTLD_LOCAL);
    if (!lib) {
        std::fprintf(stderr, "host_pdv: %s\n", dlerror());
        return 2;
    }
    auto cria = reinterpret_cast<decltype(&zt_cria)>(dlsym(lib, "zt_cria"));
    auto processa = reinterpret_cast<decltype(&zt_processa)>(dlsym(lib, "zt_processa"));
    auto destroi = reinterpret_cast<decltype(&zt_destroi)>(dlsym(lib, "zt_destroi"));
    if (!cria || !processa || !destroi) {
        std::fprintf(stderr, "host_pdv: entry point missing\n");
        return 2;
    }
    zt_consultalista* c = cria();
    int16_t empresa = 1, opcao = 1, tpmov = 0, statusret = -1, zstatus = 0;
    int32_t codigo = 0, numdoc = 0;
    char mens[512] = "";
    // Room for any grouping unless told; the full length comes back, so a cut shows.
    const size_t pedido = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    std::string saida(pedido > 0 ? pedido : 64 * 1024, '\0');
    size_t tam = 0;
    const int r =
        processa(c, &empresa, "DEMO", "", &opcao, &codigo, "F", &numdoc, &tpmov, &statusret, &zstatus, mens,
                 sizeof mens, nullptr, 0, saida.data(), saida.size(), &tam, nullptr, nullptr, nullptr);
    if (r == 0 && tam >= saida.size() && pedido == 0) {
        std::fprintf(stderr, "host_pdv: %zu bytes did not fit in %zu\n", tam, saida.size());
        return 3;
    }
    std::printf("ZDadosVendas: %s\nZstatusret: %d\n", r == 0 ? saida.c_str() : "", statusret);
    if (pedido > 0) std::printf("Tamanho: %zu\n", tam);
    destroi(c);
    // The library stays loaded: Qt's threads and handlers outlive the call.
    return r == 0 ? 0 : 1;
}
