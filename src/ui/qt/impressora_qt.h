#pragma once
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "generation/cotacao/impressora.h"

namespace ztolvan {

// A quotation job on a real printer through QPrinter: the system's default
// printer (CUPS), a printer named in ZTOLVAN_IMPRESSORA, or a PDF file when
// that variable names one ending in ".pdf" or when the system has no
// printer. Lines that would run past the page's foot go on a new page, as on
// the old system's printer object.
class ImpressoraQt : public PortaImpressora {
  public:
    // 'arquivoPdf' empty: a printer ('impressora', or the default one).
    ImpressoraQt(QString impressora, QString arquivoPdf);
    ~ImpressoraQt() override;

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
    std::string Destino() const override;

  private:
    struct Trecho {
        double x;
        QString texto;
        QFont fonte;
        double acima, altura; // the font's ascent and line spacing
    };
    bool Aberta() const { return painter_.isActive(); }
    // The current font's measures on this printer, taken once per font change.
    const QFontMetricsF& Medidas();
    void DesenhaLinha();

    QString impressora_, arquivoPdf_;
    std::unique_ptr<QPrinter> printer_;
    QPainter painter_;
    QFont fonte_;
    std::optional<QFontMetricsF> medidas_;
    QRectF pagina_;
    double x_ = 0, y_ = 0;
    std::vector<Trecho> linha_;
};

// One job of the process's printer, chosen as ImpressoraQt says. Needs a
// Qt GUI application in the process.
std::shared_ptr<PortaImpressora> NovaImpressoraQt();

} // namespace ztolvan
