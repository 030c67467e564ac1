// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/WidgetAlerts.h"

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>

namespace zib {

namespace {

QMessageBox::ButtonRole roleOf(int button, int count)
{
    if (button == 0)
        return QMessageBox::AcceptRole;
    return button == count - 1 ? QMessageBox::RejectRole : QMessageBox::ActionRole;
}

} // namespace

AlertResult WidgetAlerts::runModal(const Alert& alert)
{
    QMessageBox box(QApplication::activeWindow());
    box.setIcon(alert.style == Alert::Style::Warning ? QMessageBox::Warning : QMessageBox::Information);
    box.setWindowTitle(QApplication::applicationDisplayName());
    // What is shown can come from a web service: it is text, never markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(alert.messageText);
    box.setInformativeText(alert.informativeText);
    QList<QAbstractButton*> buttons;
    const int count = int(alert.buttons.size());
    for (int button = 0; button < count; ++button)
        buttons.append(box.addButton(alert.buttons[button], roleOf(button, count)));
    if (!buttons.isEmpty()) {
        box.setDefaultButton(qobject_cast<QPushButton*>(buttons.first()));
        box.setEscapeButton(buttons.last());
    }
    QCheckBox* suppression = nullptr;
    if (alert.showsSuppressionButton) {
        suppression = new QCheckBox(
            QCoreApplication::translate("WidgetAlerts", "Do not show this message again"), &box);
        box.setCheckBox(suppression);
    }
    box.exec();
    return {.button = qMax(0, int(buttons.indexOf(box.clickedButton()))),
            .suppressed = suppression != nullptr && suppression->isChecked()};
}

} // namespace zib
