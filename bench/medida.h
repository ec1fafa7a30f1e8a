#pragma once
// What every benchmark shares: timing a case, the PostgreSQL the run points
// at, and the one line a case prints.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace ztolvan::bench {

// Best of 'rodadas' runs of f(), in items per second.
template <class F> double ItensPorSegundo(int itens, int rodadas, F&& f) {
    double melhor = 0;
    for (int r = 0; r < rodadas; ++r) {
        auto t0 = std::chrono::steady_clock::now();
        f();
        double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        if (s > 0 && itens / s > melhor) melhor = itens / s;
    }
    return melhor;
}

inline void Imprime(const std::string& caso, double componente, double piso) {
    std::printf("%s: component %.0f items/s, floor %.0f items/s, ratio %.2f\n", caso.c_str(), componente,
                piso, componente > 0 ? piso / componente : 0.0);
    std::fflush(stdout);
}

inline std::string Env(const char* n) {
    const char* v = std::getenv(n);
    return v ? v : "";
}

struct Pg {
    std::string servidor = Env("ZTOLVAN_PG_SERVIDOR"), banco = Env("ZTOLVAN_PG_BANCO"),
                usuario = Env("ZTOLVAN_PG_USUARIO"), senha = Env("ZTOLVAN_PG_SENHA");
    bool Definido() const { return !servidor.empty(); }
    std::string ConnInfo() const {
        std::string host = servidor, porta;
        if (auto p = servidor.rfind(':'); p != std::string::npos) {
            host = servidor.substr(0, p);
            porta = servidor.substr(p + 1);
        }
        std::string ci = "host=" + host + " dbname=" + banco;
        if (!porta.empty()) ci += " port=" + porta;
        if (!usuario.empty()) ci += " user=" + usuario;
        if (!senha.empty()) ci += " password=" + senha;
        return ci;
    }
};

} // namespace ztolvan::bench
