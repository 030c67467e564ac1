// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/AccessibleText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QSplitter>
#include <QWidget>

namespace zib {

namespace {

class AccessibleText : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit AccessibleText(QWidget* widget)
        : QAccessibleWidget(widget, QAccessible::StaticText)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Description || kind == QAccessible::Value)
            return shown();
        return QAccessibleWidget::text(kind);
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(int start, int end) const override { return shown().mid(start, end - start); }
    int characterCount() const override { return int(shown().size()); }

    // Nothing can be selected or edited, and nothing tells where a character stands.
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

  private:
    QString shown() const
    {
        const auto* source = dynamic_cast<const ShowsText*>(widget());
        return source ? source->shownText() : QString();
    }
};

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (qobject_cast<QSplitterHandle*>(object)) // the toolkit's own role for it is unknown on the bus
        return new QAccessibleWidget(widget, QAccessible::Separator,
                                     QCoreApplication::translate("AccessibleText", "Edge of a pane"));
    return widget && dynamic_cast<ShowsText*>(widget) ? new AccessibleText(widget) : nullptr;
}

} // namespace

void ShowsText::textChanged(QWidget& widget, const QString& text)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTextUpdateEvent update(&widget, 0, QString(), text);
    QAccessible::updateAccessibility(&update);
    QAccessibleEvent description(&widget, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&description);
}

void installAccessibleTexts()
{
    QAccessible::installFactory(makeInterface);
}

} // namespace zib
