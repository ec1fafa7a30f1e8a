#pragma once
// The printer a quotation goes to: the system's default printer, with fonts,
// tab stops and page breaks. The Qt host implements it over QPrinter (CUPS
// default printer, or PDF); tests and the command line use the recording one.
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace ztolvan {

class PortaImpressora {
  public:
    virtual ~PortaImpressora() = default;

    // Every operation but DefineFonte answers false when the printer failed;
    // the job is then abandoned with Cancela.

    // Opens the job; 'documento' names it in the printer's queue.
    virtual bool Inicia(const std::string& documento) = 0;
    // False when the printer has no such font: the current font stays.
    virtual bool DefineFonte(const std::string& nome) = 0;
    virtual bool DefineTamanho(double pontos) = 0;
    virtual bool DefineNegrito(bool ligado) = 0;
    virtual bool DefineSublinhado(bool ligado) = 0;
    // Text on the open line at tab stop 'coluna': column 1 is the left
    // margin, a column as wide as the current font's average character; 0
    // goes on where the line left off. Text already past the stop is the
    // caller's fault.
    virtual bool Escreve(int coluna, std::string_view texto) = 0;
    // Ends the open line; with nothing written on it, an empty line.
    virtual bool NovaLinha() = 0;
    virtual bool NovaPagina() = 0;
    // End of the document: the job goes to the printer.
    virtual bool Encerra() = 0;
    virtual void Cancela() = 0;
    // Where an ended job went, in words for the operator ("a impressora X",
    // "o arquivo Y"); empty when there is nothing to tell.
    virtual std::string Destino() const { return {}; }
};

// Where quotation jobs go: one new printer per job from the process-wide
// factory (the Qt host installs the default printer's). Without one,
// NovaImpressora gives nullptr.
void DefineFabricaImpressora(std::function<std::shared_ptr<PortaImpressora>()> fabrica);
std::shared_ptr<PortaImpressora> NovaImpressora();

struct TrechoImpresso {
    int coluna = 0;
    std::string texto;
    std::string fonte;
    double tamanho = 0;
    bool negrito = false;
    bool sublinhado = false;
};

struct LinhaImpressa {
    std::vector<TrechoImpresso> trechos;
    // The line as a fixed-pitch printer shows it: each piece from its column.
    std::string Texto() const;
};

// Keeps every call and the lines of each page; a plain-text printer for the
// command line as well. Fonts named in 'ausentes' are refused; the call
// numbered 'falhaNaChamada' (from 1) fails as a broken printer would.
class ImpressoraGravada : public PortaImpressora {
  public:
    bool Inicia(const std::string& documento) override;
    bool DefineFonte(const std::string& nome) override;
    bool DefineTamanho(double pontos) override;
    bool DefineNegrito(bool ligado) override;
    bool DefineSublinhado(bool ligado) override;
    bool Escreve(int coluna, std::string_view texto) override;
    bool NovaLinha() override;
    bool NovaPagina() override;
    bool Encerra() override;
    void Cancela() override;

    std::set<std::string> ausentes;
    int falhaNaChamada = 0;

    std::vector<std::string> chamadas;
    std::vector<std::vector<LinhaImpressa>> paginas;
    bool encerrada = false, cancelada = false;
    // Pieces written at a column the line had already passed.
    int sobreposicoes = 0;

  private:
    bool Registra(std::string chamada);
    void FechaLinha();
    TrechoImpresso estilo_{0, "", "", 10, false, false};
    LinhaImpressa aberta_;
    bool temAberta_ = false;
};

} // namespace ztolvan
