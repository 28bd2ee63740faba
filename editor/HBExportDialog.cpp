// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBExportDialog.h"

#include "HBFolders.h"

#include <KMImageFileManager.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>

namespace
{

constexpr char SuffixKey[] = "export/format";
constexpr char ExportQualityKey[] = "export/quality";
constexpr char SrgbKey[] = "export/srgb";
constexpr char ChromaKey[] = "export/chroma";

/// "jpeg" and "jpg" are one format in the list.
QString ListedSuffix(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == "jpeg" ? "jpg" : suffix == "tiff" ? "tif" : suffix;
}

} // namespace

HBExportDialog::HBExportDialog(const HBImage<>& image, const QString& photo, HBFolders* folders, bool remember,
                               QWidget* parent)
    : QDialog(parent)
    , m_Photo(photo)
    , m_pFolders(folders)
    , m_Remember(remember)
    , m_Estimate(image)
    , m_pFormat(new QComboBox)
    , m_pChroma(new QComboBox)
    , m_pSrgb(new QCheckBox(tr("Convert colors to &sRGB")))
    , m_pSize(new QLabel)
    , m_pPath(new QLineEdit)
    , m_pProblem(new QLabel)
{
    setWindowTitle(tr("Export"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pFormat->setObjectName("format");
    m_pChroma->setObjectName("chroma");
    m_pSize->setObjectName("size");
    m_pPath->setObjectName("path");
    ListFormats();
    m_pChroma->addItem(tr("By the quality: full from 90 on"), int(HBChroma::ByQuality));
    m_pChroma->addItem(tr("Full (4:4:4)"), int(HBChroma::Full));
    m_pChroma->addItem(tr("Half (4:2:2)"), int(HBChroma::Half));
    m_pChroma->addItem(tr("Quarter (4:2:0)"), int(HBChroma::Quarter));
    m_pChroma->setToolTip(tr("How fine colors are stored. Thin colored lines and texts need them full."));
    auto* browse = new QPushButton(tr("&Browse…"));
    browse->setAutoDefault(false);
    auto* where = new QHBoxLayout;
    where->addWidget(m_pPath, 1);
    where->addWidget(browse);
    m_pPath->setMinimumWidth(40 * fontMetrics().averageCharWidth());

    auto* form = new QFormLayout;
    form->addRow(tr("&Format:"), m_pFormat);
    QWidget* const quality = MakeQuality();
    form->addRow(tr("&Quality:"), quality);
    qobject_cast<QLabel*>(form->labelForField(quality))->setBuddy(m_pQuality);
    form->addRow(tr("&Colors:"), m_pChroma);
    m_pSrgb->setObjectName("srgb");
    m_pSrgb->setToolTip(tr("For programs and pages that do not look at color profiles"));
    form->addRow(QString(), m_pSrgb);
    form->addRow(tr("Size:"), m_pSize);
    form->addRow(tr("F&ile:"), where);
    qobject_cast<QLabel*>(form->labelForField(where))->setBuddy(m_pPath);
    m_pProblem->setWordWrap(true);
    form->addRow(QString(), m_pProblem);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    m_pExport = buttons->addButton(tr("&Export"), QDialogButtonBox::AcceptRole);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
    m_pExport->setDefault(true); // not before it knows its dialog, for which Cancel would be it

    ReadSettings();
    const QString name = QFileInfo(photo).completeBaseName() + '.' + Suffix();
    SetPath(QDir(folders->Folder(HBFolders::Exports, photo)).filePath(name));
    if (QFileInfo(Path()) == QFileInfo(photo))
        SetPath(QDir(QFileInfo(Path()).path())
                    .filePath(QFileInfo(photo).completeBaseName() + tr("-export") + '.' + Suffix()));

    connect(&m_Estimate, &HBSizeEstimate::Known, this, &HBExportDialog::ShowSize);
    connect(m_pFormat, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &HBExportDialog::OnFormat);
    connect(m_pQuality, &QSlider::valueChanged, this, &HBExportDialog::Update);
    connect(m_pChroma, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &HBExportDialog::Update);
    connect(m_pSrgb, &QCheckBox::toggled, this, &HBExportDialog::Update);
    connect(m_pPath, &QLineEdit::textChanged, this, &HBExportDialog::OnPath);
    connect(browse, &QPushButton::clicked, this, &HBExportDialog::Browse);
    connect(buttons, &QDialogButtonBox::accepted, this, &HBExportDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Update();
}

QWidget* HBExportDialog::MakeQuality()
{
    auto* box = new QWidget;
    m_pQuality = new QSlider(Qt::Horizontal);
    m_pQuality->setObjectName("quality");
    m_pQualityBox = new QSpinBox;
    m_pQuality->setRange(0, 100);
    m_pQualityBox->setRange(0, 100);
    m_pQuality->setToolTip(tr("0 smallest, 100 best. A WebP of 100 loses nothing at all."));
    connect(m_pQuality, &QSlider::valueChanged, m_pQualityBox, &QSpinBox::setValue);
    connect(m_pQualityBox, QOverload<int>::of(&QSpinBox::valueChanged), m_pQuality, &QSlider::setValue);
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pQuality, 1);
    layout->addWidget(m_pQualityBox);
    return box;
}

/// Those that most programs read come first.
void HBExportDialog::ListFormats()
{
    QStringList suffixes = KMImageFileManager::SuffixesForWrite();
    const std::pair<const char*, const char*> known[] = {
        {"jpg", "JPEG"}, {"png", "PNG"}, {"tif", "TIFF"}, {"webp", "WebP"}};
    for (const auto& format : known) {
        if (suffixes.removeAll(format.first) > 0)
            m_pFormat->addItem(format.second, QString(format.first));
    }
    for (const char* twin : {"jpeg", "tiff"})
        suffixes.removeAll(twin);
    for (const QString& suffix : qAsConst(suffixes))
        m_pFormat->addItem(suffix.toUpper(), suffix);
}

void HBExportDialog::ReadSettings()
{
    const auto value = [this](const char* key, const QVariant& otherwise) {
        return m_Remember ? QSettings().value(key, otherwise) : otherwise;
    };
    m_pFormat->setCurrentIndex(qMax(0, m_pFormat->findData(value(SuffixKey, "jpg"))));
    m_pQuality->setValue(value(ExportQualityKey, HBPhotoOptions().quality).toInt());
    m_pQualityBox->setValue(m_pQuality->value());
    m_pSrgb->setChecked(value(SrgbKey, false).toBool());
    m_pChroma->setCurrentIndex(qMax(0, m_pChroma->findData(value(ChromaKey, int(HBChroma::ByQuality)).toInt())));
}

void HBExportDialog::WriteSettings() const
{
    if (!m_Remember)
        return;
    QSettings settings;
    settings.setValue(SuffixKey, Suffix());
    settings.setValue(ExportQualityKey, m_pQuality->value());
    settings.setValue(SrgbKey, m_pSrgb->isChecked());
    settings.setValue(ChromaKey, m_pChroma->currentData());
}

QString HBExportDialog::Suffix() const
{
    return m_pFormat->currentData().toString();
}

/// A name without a folder lies where the dialog would have begun.
QString HBExportDialog::Path() const
{
    const QString typed = m_pPath->text();
    return typed.isEmpty()
               ? QString()
               : QDir::cleanPath(QDir(m_pFolders->Folder(HBFolders::Exports, m_Photo)).absoluteFilePath(typed));
}

HBPhotoOptions HBExportDialog::Options() const
{
    HBPhotoOptions options;
    options.quality = m_pQuality->value();
    options.convertToSrgb = m_pSrgb->isChecked();
    options.chroma = HBChroma(m_pChroma->currentData().toInt());
    return options;
}

void HBExportDialog::SetPath(const QString& path)
{
    m_pPath->setText(QDir::toNativeSeparators(path));
}

void HBExportDialog::Browse()
{
    QFileDialog dialog(this, tr("Export As"), QFileInfo(Path()).path(), KMImageFileManager::GetFilterForWrite());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // asked at the end
    dialog.setDefaultSuffix(Suffix());
    dialog.selectFile(QFileInfo(Path()).fileName());
    if (dialog.exec() == QDialog::Accepted)
        SetPath(dialog.selectedFiles().value(0));
}

/// The name follows the format.
void HBExportDialog::OnFormat()
{
    const QFileInfo file(m_pPath->text());
    const QString suffix = file.suffix();
    QString path = m_pPath->text();
    if (!suffix.isEmpty() && m_pFormat->findData(ListedSuffix(path)) >= 0)
        path.chop(suffix.size() + 1);
    if (ListedSuffix(m_pPath->text()) != Suffix()) {
        const QSignalBlocker quiet(m_pPath);
        m_pPath->setText(path + '.' + Suffix());
    }
    Update();
}

/// And the format the name.
void HBExportDialog::OnPath()
{
    const int format = m_pFormat->findData(ListedSuffix(m_pPath->text()));
    const QSignalBlocker quiet(m_pFormat);
    if (format >= 0)
        m_pFormat->setCurrentIndex(format);
    Update();
}

void HBExportDialog::Update()
{
    const QString path = Path();
    QString problem;
    if (!path.isEmpty() && QFileInfo(path) == QFileInfo(m_Photo))
        problem = tr("This is the photo itself: choose another name, or Save instead of Export.");
    else if (!path.isEmpty() && !QFileInfo(QFileInfo(path).path()).isDir())
        problem = tr("There is no such folder.");
    else if (!path.isEmpty() && ListedSuffix(path) != Suffix())
        problem = tr("The name does not end in a format that can be written.");
    m_pProblem->setText(problem);
    m_pExport->setEnabled(!path.isEmpty() && problem.isEmpty());
    m_pQuality->parentWidget()->setEnabled(HBTakesQuality("x." + Suffix()));
    m_pChroma->setEnabled(Suffix() == "jpg");
    if (m_pSize->text().isEmpty())
        m_pSize->setText(tr("…"));
    m_Estimate.Ask("x." + Suffix(), Options());
}

void HBExportDialog::ShowSize(qint64 bytes)
{
    m_pSize->setText(bytes < 0 ? tr("cannot be written in this format") : QLocale().formattedDataSize(bytes));
}

void HBExportDialog::accept()
{
    if (!m_pExport->isEnabled())
        return;
    if (QFileInfo::exists(Path()) &&
        QMessageBox::question(this, tr("Export"), tr("Replace %1?").arg(Path())) != QMessageBox::Yes)
        return;
    m_pFolders->SetUsed(HBFolders::Exports, Path());
    WriteSettings();
    QDialog::accept();
}
