#include "ui/qt/impressora_qt.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <algorithm>

#include "ui/qt/comum_qt.h"

namespace ztolvan {

ImpressoraQt::ImpressoraQt(QString impressora, QString arquivoPdf)
    : impressora_(std::move(impressora)), arquivoPdf_(std::move(arquivoPdf)) {}

ImpressoraQt::~ImpressoraQt() {
    // A job never ended is not sent half-printed.
    if (Aberta()) Cancela();
}

bool ImpressoraQt::Inicia(const std::string& documento) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!arquivoPdf_.isEmpty()) {
        printer_->setOutputFormat(QPrinter::PdfFormat);
        printer_->setOutputFileName(arquivoPdf_);
    } else {
        if (!impressora_.isEmpty()) printer_->setPrinterName(impressora_);
        if (!printer_->isValid()) return false;
    }
    printer_->setDocName(Q(documento));
    printer_->setPageSize(QPageSize(QPageSize::A4));
    printer_->setPageMargins(QMarginsF(12, 10, 10, 10), QPageLayout::Millimeter);
    if (!painter_.begin(printer_.get())) return false;
    const QRectF area = printer_->pageRect(QPrinter::DevicePixel);
    pagina_ = QRectF(0, 0, area.width(), area.height());
    // A fixed pitch until the caller names a face, so columns line up.
    fonte_ = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fonte_.setPointSizeF(10);
    medidas_.reset();
    x_ = y_ = 0;
    linha_.clear();
    return true;
}

bool ImpressoraQt::DefineFonte(const std::string& nome) {
    const QStringList instaladas = QFontDatabase::families();
    QString familia = Q(nome);
    if (!instaladas.contains(familia, Qt::CaseInsensitive)) {
        familia = GemeaMetrica(nome);
        if (familia.isEmpty() || !instaladas.contains(familia, Qt::CaseInsensitive)) return false;
    }
    fonte_.setFamilies({familia});
    medidas_.reset();
    return true;
}

bool ImpressoraQt::DefineTamanho(double pontos) {
    if (pontos <= 0) return false;
    fonte_.setPointSizeF(pontos);
    medidas_.reset();
    return true;
}

bool ImpressoraQt::DefineNegrito(bool ligado) {
    fonte_.setBold(ligado);
    medidas_.reset();
    return true;
}

bool ImpressoraQt::DefineSublinhado(bool ligado) {
    fonte_.setUnderline(ligado);
    medidas_.reset();
    return true;
}

bool ImpressoraQt::Escreve(int coluna, std::string_view texto) {
    if (!Aberta()) return false;
    const QFontMetricsF& m = Medidas();
    const QString q = Q(texto);
    const double x = coluna > 0 ? (coluna - 1) * m.averageCharWidth() : x_;
    linha_.push_back({x, q, fonte_, m.ascent(), m.lineSpacing()});
    x_ = x + m.horizontalAdvance(q);
    return true;
}

const QFontMetricsF& ImpressoraQt::Medidas() {
    if (!medidas_) medidas_.emplace(fonte_, printer_.get());
    return *medidas_;
}

void ImpressoraQt::DesenhaLinha() {
    double acima = 0, altura = linha_.empty() ? Medidas().lineSpacing() : 0;
    for (const Trecho& t : linha_) {
        acima = std::max(acima, t.acima);
        altura = std::max(altura, t.altura);
    }
    if (y_ > 0 && y_ + altura > pagina_.height()) {
        printer_->newPage();
        y_ = 0;
    }
    for (const Trecho& t : linha_) {
        painter_.setFont(t.fonte);
        painter_.drawText(QPointF(t.x, y_ + acima), t.texto);
    }
    y_ += altura;
    x_ = 0;
    linha_.clear();
}

bool ImpressoraQt::NovaLinha() {
    if (!Aberta()) return false;
    DesenhaLinha();
    return true;
}

bool ImpressoraQt::NovaPagina() {
    if (!Aberta()) return false;
    if (!linha_.empty()) DesenhaLinha();
    y_ = 0;
    return printer_->newPage();
}

bool ImpressoraQt::Encerra() {
    if (!Aberta()) return false;
    if (!linha_.empty()) DesenhaLinha();
    if (!painter_.end()) return false;
    return arquivoPdf_.isEmpty() || QFileInfo(arquivoPdf_).size() > 0;
}

void ImpressoraQt::Cancela() {
    if (!Aberta()) return;
    printer_->abort();
    painter_.end();
    if (!arquivoPdf_.isEmpty()) QFile::remove(arquivoPdf_);
}

std::string ImpressoraQt::Destino() const {
    if (!arquivoPdf_.isEmpty()) return "o arquivo " + S(QDir::toNativeSeparators(QFileInfo(arquivoPdf_).absoluteFilePath()));
    return "a impressora " + S(printer_ ? printer_->printerName() : impressora_);
}

namespace {

// With no printer in the system the job is kept as a PDF in the operator's
// documents folder, named by the moment it was printed.
QString ArquivoSemImpressora() {
    QString pasta = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (pasta.isEmpty() || !QDir().mkpath(pasta)) pasta = QDir::homePath();
    return QDir(pasta).filePath(QStringLiteral("cotacao-%1.pdf")
                                    .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"))));
}

} // namespace

std::shared_ptr<PortaImpressora> NovaImpressoraQt() {
    const QString escolhida = qEnvironmentVariable("ZTOLVAN_IMPRESSORA").trimmed();
    if (escolhida.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
        return std::make_shared<ImpressoraQt>(QString(), escolhida);
    if (!escolhida.isEmpty()) return std::make_shared<ImpressoraQt>(escolhida, QString());
    const QPrinterInfo padrao = QPrinterInfo::defaultPrinter();
    if (!padrao.isNull()) return std::make_shared<ImpressoraQt>(padrao.printerName(), QString());
    return std::make_shared<ImpressoraQt>(QString(), ArquivoSemImpressora());
}

} // namespace ztolvan
