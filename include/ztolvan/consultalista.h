#pragma once
// The component's one public class. A host creates it (the thread's
// database connection opens) and calls ZProcessa any number of times;
// destroying it closes the connection. Everything it keeps is per thread:
// use an instance on the thread that created it.
#include <cstdint>
#include <string>

#include "ztolvan/valor.h"

namespace ztolvan {

class consultalista {
  public:
    consultalista();  // Class_Initialize
    ~consultalista(); // Class_Terminate
    consultalista(const consultalista&) = delete;
    consultalista& operator=(const consultalista&) = delete;

    // The fifteen by-reference parameters, in order; the last four are
    // optional (nullptr = omitted: 0 / false). Failures are shown to the
    // operator as messages; zstatus and zstatusmens always come back 0 and "".
    void ZProcessa(int16_t& zEmpresa, std::string& zoperador, std::string& Zsenha, int16_t& zopcao,
                   int32_t& ZCodigo, std::string& Zorigem, int32_t& Znumdoc, int16_t& Ztpmov,
                   int16_t& Zstatusret, int16_t& zstatus, std::string& zstatusmens,
                   Valor* ZDadosVendas = nullptr, int16_t* ztipodepreco = nullptr, bool* zInativos = nullptr,
                   bool* zModoCaptura = nullptr);

    // The component's version, "major.minor.rrrr".
    static std::string Versao();
};

} // namespace ztolvan
