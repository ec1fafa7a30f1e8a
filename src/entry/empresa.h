#pragma once

namespace ztolvan {

// Reads the session company's record into A_MTBPAR; any status but "00" and
// "23" is reported and the call goes on.
void LerEmpresa();
// Works out Sessao.TipoPreco from the settings when no price type was passed.
void DefineTipoPreco();

} // namespace ztolvan
