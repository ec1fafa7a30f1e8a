#pragma once
#include <string>

#include "common/valor.h"

namespace ztolvan {

// Settings are kept per operator in TBREGSRV, with the machine-wide store as
// the fallback and a fixed default in the code.

// The value of setting Chave for the session's operator; Padrao is the
// default (a text, or a 16-bit number).
Valor LerConfiguracao(const std::string& Chave, const Valor& Padrao);
// "status/value" of one TBREGSRV row (for example "00/SIM").
std::string Registro_Consultar_Dados(const std::string& Usuario, const std::string& Chave);
// True once a TBREGSRV read failed with "99": from then on the thread reads
// the machine-wide store only.
bool& SemTabelaRegistro();

// Every setting the component reads, each stored in its field of Sessao.
enum class Ajuste {
    EmpresaOrigem,
    PrecoVenda,
    TipoPrecoCompra,
    BloqueiaItens,
    CustoPrecoEmpresaOrigem,
    PrecoAgrupamento,
    TamanhoCodigoItem,
    DescricaoAgrupamento,
    QtdPosicoesAgrupamento,
    CompraPrcVen,
    DescontoCascata,
    CobraICMSSubstituto,
    ICMSAntecipado,
    ImpressoraMatricial,
};

// Reads one setting into its field of the thread's Sessao.
void LerAjuste(Ajuste a);
// The key text of a setting, as stored.
const char* ChaveDoAjuste(Ajuste a);

} // namespace ztolvan
