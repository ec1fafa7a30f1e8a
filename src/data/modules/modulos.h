#pragma once
// The table-access modules. A caller sets Funcao and Transacao of the
// module record (and its Chave fields, or the record fields for an insert
// or update), calls the module's entry and tests ComunicaAtual().Status:
//     A_MTBPAR().Funcao = "FSEL001";
//     A_MTBPAR().Transacao = "REQUERY";
//     ChaveMTBPAR().Empresa = 1;
//     MTBPAR();
//     if (ComunicaAtual().Status == "00") ... A_MTBPAR().RazSocial ...
// "COMMIT" or "ROLLBACK" in Transacao ends the unit of change through any
// module. Records, keys and cursor tables are the calling thread's own.
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/modules/registros.h"

namespace ztolvan {

#define ZT_MODULOS(X)                                                                                        \
    X(MTBPAR)                                                                                                \
    X(MTBPNF)                                                                                                \
    X(MTBDOC) X(MTBICM) X(MTBVEN) X(MTBREP) X(MTBDOCIT) X(MTBMAT) X(MTBPEV) X(MTBPEVIT) X(MTBPEVDC)          \
        X(MTBICMUF) X(MTBPEC) X(MTBPECIT) X(MTBCUS) X(MTBFOR) X(MTBMATEQ) X(MTBMATAG)

// The entry and the record of each module: MTBPAR() and A_MTBPAR().
#define ZT_DECLARA_MODULO_(M)                                                                                \
    void M();                                                                                                \
    A_##M##_t& A_##M();
ZT_MODULOS(ZT_DECLARA_MODULO_)
#undef ZT_DECLARA_MODULO_

// The key records: ChaveMTBPAR() and so on (MTBPEVDC has no parameters).
#define ZT_DECLARA_CHAVE_(M) Chave##M##_t& Chave##M();
ZT_DECLARA_CHAVE_(MTBPAR)
ZT_DECLARA_CHAVE_(MTBPNF)
ZT_DECLARA_CHAVE_(MTBDOC)
ZT_DECLARA_CHAVE_(MTBICM)
ZT_DECLARA_CHAVE_(MTBVEN)
ZT_DECLARA_CHAVE_(MTBREP)
ZT_DECLARA_CHAVE_(MTBDOCIT)
ZT_DECLARA_CHAVE_(MTBMAT)
ZT_DECLARA_CHAVE_(MTBPEV)
ZT_DECLARA_CHAVE_(MTBPEVIT)
ZT_DECLARA_CHAVE_(MTBICMUF)
ZT_DECLARA_CHAVE_(MTBPEC)
ZT_DECLARA_CHAVE_(MTBPECIT)
ZT_DECLARA_CHAVE_(MTBCUS)
ZT_DECLARA_CHAVE_(MTBFOR)
ZT_DECLARA_CHAVE_(MTBMATEQ)
ZT_DECLARA_CHAVE_(MTBMATAG)
// MTBMAT's second key, for FSEL063 (EMPRESA, CODEQUIV, TIPO).
ZT_DECLARA_CHAVE_(EquivMTBMAT)
#undef ZT_DECLARA_CHAVE_

// Every module forgets its prepared statements (a new component instance,
// a new connection): the next call of each handler prepares again.
void ZeraCursoresModulos();

// A statement a screen builds at run time, prepared on its first use on this
// connection and reused after: the handle for the text (Comunica.Cursor holds
// it too), or 0 with the failure in Comunica. ZeraCursoresModulos forgets
// these as well.
int16_t CursorDoComando(const std::string& texto);

// ICMS rates of a company's ICMS code: the general rates from TBICM, and for
// kind "F" the state's own substitution rate from TBICMUF when it has one.
// Both 0 when the code is not found. Comunica.Status ends "00" whenever the
// code was found, whatever the state lookup gave.
void LerAliquotaICMS(int16_t& Empresa, int16_t& CodICMS, std::string& UF, std::string& Tipo, double& PercICMS,
                     double& PercICMSF);
// Where this thread's last LerAliquotaICMS found its rates: the TBICM row
// (none when the code is not there), and whether TBICMUF gave the state's.
struct OrigemAliquotaICMS {
    bool achou = false, doEstado = false;
    int16_t empresa = 0, codigo = 0;
    std::string uf;
};
const OrigemAliquotaICMS& UltimaAliquotaICMS();

// What a module holds, for tests and benchmarks: the statement of a
// function code ("" when the module has none), the thread's cursor table.
std::string TextoDoComando(std::string_view modulo, std::string_view funcao);
std::span<const int16_t> CursoresDoModulo(std::string_view modulo);
// Names in the statements that match no column of their record (none expected).
std::vector<std::string> ColunasNaoResolvidas();

} // namespace ztolvan
