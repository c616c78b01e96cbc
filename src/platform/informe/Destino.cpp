#include "platform/informe/Destino.h"

#include "nvArticulo/Error.h"
#include "platform/widgets/DialogoPropio.h"

#include <QFileDialog>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProgressDialog>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr int ResolucionPdf = 300;
constexpr int Demora = 500; ///< milliseconds until the progress box comes up

void prepararPagina(QPagedPaintDevice &dispositivo)
{
    dispositivo.setPageLayout(
        {QPageSize(QPageSize::A4), QPageLayout::Landscape, {12, 12, 12, 12}, QPageLayout::Millimeter});
}

} // namespace

DestinoInforme::DestinoInforme(QWidget *padre, const QString &nombre)
    : m_nombre(nombre)
{
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        elegirFichero(padre);
    else
        elegirImpresora(padre);
}

DestinoInforme::~DestinoInforme() = default;

void DestinoInforme::elegirImpresora(QWidget *padre)
{
    auto impresora = std::make_unique<QPrinter>(QPrinter::HighResolution);
    prepararPagina(*impresora);
    impresora->setDocName(m_nombre);
    const DialogoPropio<QPrintDialog> dialogo(new QPrintDialog(impresora.get(), padre));
    dialogo->setWindowTitle(u"Imprimir"_s);
    if (dialogo->exec() == QDialog::Accepted && dialogo.vivo())
        m_dispositivo = std::move(impresora);
}

void DestinoInforme::elegirFichero(QWidget *padre)
{
    const DialogoPropio<QFileDialog> dialogo(new QFileDialog(
        padre, u"Guardar el informe en PDF"_s, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)));
    dialogo->setObjectName(u"dlgPdf"_s);
    dialogo->setAcceptMode(QFileDialog::AcceptSave);
    dialogo->setOption(QFileDialog::DontUseNativeDialog);
    dialogo->setNameFilter(u"Documentos PDF (*.pdf)"_s);
    dialogo->setDefaultSuffix(u"pdf"_s);
    dialogo->selectFile(m_nombre + u".pdf"_s);
    if (dialogo->exec() != QDialog::Accepted || !dialogo.vivo() || dialogo->selectedFiles().isEmpty())
        return;
    m_fichero = std::make_unique<QSaveFile>(dialogo->selectedFiles().constFirst());
    auto documento = std::make_unique<QPdfWriter>(m_fichero.get());
    documento->setResolution(ResolucionPdf);
    documento->setTitle(m_nombre);
    prepararPagina(*documento);
    m_dispositivo = std::move(documento);
}

bool DestinoInforme::imprimir(const Informe &informe, QWidget *padre)
{
    if (m_fichero && !m_fichero->open(QIODevice::WriteOnly))
        throw Error{0, m_fichero->errorString(), {}};
    const DialogoPropio<QProgressDialog> progreso(
        new QProgressDialog(u"Imprimiendo, espere por favor..."_s, u"Detener"_s, 0, 1, padre));
    progreso->setWindowTitle(u"Imprimir"_s);
    progreso->setWindowModality(Qt::WindowModal);
    progreso->setMinimumDuration(Demora);
    auto *impresora = dynamic_cast<QPrinter *>(m_dispositivo.get());
    const bool acabado = informe.imprimir(*m_dispositivo, [&](int hecho, int total) {
        progreso->setMaximum(total);
        progreso->setValue(hecho);
        const bool sigue = progreso.vivo() && !progreso->wasCanceled();
        if (!sigue && impresora)
            impresora->abort();
        return sigue;
    });
    if (!acabado)
        return false;
    if (m_fichero && !m_fichero->commit())
        throw Error{0, m_fichero->errorString(), {}};
    return true;
}

} // namespace nv
