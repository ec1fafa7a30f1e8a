#include "common/contexto.h"
#include "common/texto.h"
#include "data/comunica.h"
#include "data/modules/modulos.h"

namespace ztolvan {

const OrigemAliquotaICMS& UltimaAliquotaICMS() { return Contexto::Atual().Parte<OrigemAliquotaICMS>(); }

void LerAliquotaICMS(int16_t& Empresa, int16_t& CodICMS, std::string& UF, std::string& Tipo, double& PercICMS,
                     double& PercICMSF) {
    Comunica& c = ComunicaAtual();
    OrigemAliquotaICMS& origem = Contexto::Atual().Parte<OrigemAliquotaICMS>();
    origem.achou = origem.doEstado = false;
    origem.empresa = Empresa;
    origem.codigo = CodICMS;
    ChaveMTBICM().EMPRESA = Empresa;
    ChaveMTBICM().CODIGO = CodICMS;
    A_MTBICM().Funcao = "FSEL001";
    A_MTBICM().Transacao = "REQUERY";
    MTBICM();
    if (c.Status != status::Ok) {
        PercICMS = 0;
        PercICMSF = 0;
        return;
    }
    origem.achou = true;
    PercICMS = A_MTBICM().PERCICMS;
    PercICMSF = A_MTBICM().PERCICMSF;
    if (Normaliza(Tipo) != "F") return;
    ChaveMTBICMUF().EMPRESA = Empresa;
    ChaveMTBICMUF().CODIGO = CodICMS;
    ChaveMTBICMUF().UF = UF;
    A_MTBICMUF().Funcao = "FSEL001";
    A_MTBICMUF().Transacao = "REQUERY";
    MTBICMUF();
    if (c.Status == status::Ok) {
        PercICMSF = A_MTBICMUF().PERCICMSF;
        origem.doEstado = true;
        origem.uf = UF;
    }
    // A state without its own rate keeps the general one.
    c.Status = status::Ok;
}

} // namespace ztolvan
