// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/AboutWindow.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace zib {

AboutWindow::AboutWindow()
{
    setWindowTitle(tr("About"));
    auto* name = new QLabel(QStringLiteral("Zib"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);
    auto* version = new QLabel(tr("Version %1").arg(QCoreApplication::applicationVersion()));
    auto* purpose = new QLabel(tr("Find music, hear it, keep what you love."));
    auto* licence = new QLabel(tr("Free software under the GNU General Public License, version 3 or later."));
    licence->setWordWrap(true);
    auto* close = new QDialogButtonBox(QDialogButtonBox::Close);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 16);
    layout->setSpacing(8);
    for (QLabel* label : {name, version, purpose, licence}) {
        label->setAlignment(Qt::AlignHCenter);
        layout->addWidget(label);
    }
    layout->addSpacing(8);
    layout->addWidget(close);
    connect(close, &QDialogButtonBox::rejected, this, &QDialog::close);
    setFixedWidth(360);
}

void AboutWindow::showCentred()
{
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center());
    show();
    raise();
    activateWindow();
}

} // namespace zib
