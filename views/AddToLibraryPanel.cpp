// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/AddToLibraryPanel.h"

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QPushButton>
#include <QStandardPaths>

namespace zib {

namespace {

QString typesFilter()
{
    QStringList patterns;
    for (const char* const type : {"mp3", "mp2", "aif", "aiff", "aifc", "wav", "wave", "mpg", "mpga", "sd2f",
                                   "nvf", "aa", "aax", "mp4a", "m4p", "m4b"})
        patterns.append(QLatin1String("*.") + QLatin1String(type));
    return AddToLibraryPanel::tr("Sound files (%1)").arg(patterns.join(QLatin1Char(' ')));
}

} // namespace

AddToLibraryPanel::AddToLibraryPanel(QWidget* parent)
    : FilePanel(parent, tr("Add to library"), QStandardPaths::writableLocation(QStandardPaths::MusicLocation),
                typesFilter())
{
    setOption(QFileDialog::DontUseNativeDialog);
    setOption(QFileDialog::HideNameFilterDetails);
    setFileMode(QFileDialog::ExistingFiles);
    setLabelText(QFileDialog::Accept, tr("Add"));
    // Both of its views, the list and the details, share one selection.
    list_ = findChild<QAbstractItemView*>(QStringLiteral("listView"));
    auto* buttons = findChild<QDialogButtonBox*>();
    if (list_ == nullptr || buttons == nullptr)
        return;
    const auto updateButton = [this, buttons] {
        if (QPushButton* add = buttons->button(QDialogButtonBox::Open); add && !selectedPaths().isEmpty())
            add->setEnabled(true);
    };
    connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, updateButton,
            Qt::QueuedConnection); // after the panel's own view of it, which knows of files alone
}

QStringList AddToLibraryPanel::selectedPaths() const
{
    QStringList paths;
    const auto rows = list_ ? list_->selectionModel()->selectedRows() : QModelIndexList();
    for (const QModelIndex& row : rows)
        paths.append(row.data(QFileSystemModel::FilePathRole).toString());
    return paths;
}

void AddToLibraryPanel::accept()
{
    QStringList paths = selectedPaths();
    if (paths.isEmpty())
        paths = selectedFiles(); // typed
    for (const QString& path : std::as_const(paths)) {
        const QFileInfo info(path);
        picked_.append(info.isSymLink() ? info.canonicalFilePath() : info.absoluteFilePath());
    }
    picked_.removeAll(QString()); // links to nothing
    if (!picked_.isEmpty())
        QDialog::accept();
}

} // namespace zib
