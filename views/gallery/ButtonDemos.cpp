// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/Icons.h"
#include "views/OfferedTags.h"
#include "views/Segments.h"
#include "views/gallery/Demos.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace zib {

namespace {

using State = Page::State;

QToolButton* makeTool(const QString& iconName, int size = 20)
{
    auto* button = new QToolButton;
    button->setIcon(icon(iconName));
    button->setIconSize({size, size});
    button->setAccessibleName(iconName);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void fillToolButtons(Page& page)
{
    const auto add = [&](const QString& caption, QToolButton* button, State state = State::Normal) {
        page.add(caption, surrounded(QStringLiteral("bar"), button), state, button);
    };
    add(QStringLiteral("Normal"), makeTool(QStringLiteral("next")));
    add(QStringLiteral("Large"), makeTool(QStringLiteral("play"), 28));
    add(QStringLiteral("Hovered"), makeTool(QStringLiteral("next")), State::Hovered);
    add(QStringLiteral("Focused"), makeTool(QStringLiteral("next")), State::Focused);
    add(QStringLiteral("Pressed"), makeTool(QStringLiteral("next")), State::Pressed);
    add(QStringLiteral("Disabled"), makeTool(QStringLiteral("heart")), State::Disabled);
    QToolButton* loved = makeTool(QStringLiteral("heart-filled"));
    loved->setIcon(icon(QStringLiteral("heart-filled"), Tint::Loved));
    loved->setCheckable(true);
    loved->setChecked(true);
    add(QStringLiteral("Checked"), loved);
}

/// A button as it is in windows of their own; it lives in one.
void addDialogButton(Page& page, const QString& caption, const QString& text, bool isDefault,
                     State state = State::Normal)
{
    auto* dialog = new QDialog;
    dialog->setWindowFlags(Qt::Widget);
    auto* button = new QPushButton(text, dialog);
    button->setAutoDefault(false);
    button->setDefault(isDefault);
    auto* layout = new QHBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(button);
    page.add(caption, dialog, state, button);
}

void fillPushButtons(Page& page)
{
    const QString cancel = QStringLiteral("Cancel");
    const QString save = QStringLiteral("Save");
    addDialogButton(page, QStringLiteral("Normal"), cancel, false);
    addDialogButton(page, QStringLiteral("Hovered"), cancel, false, State::Hovered);
    addDialogButton(page, QStringLiteral("Focused"), cancel, false, State::Focused);
    addDialogButton(page, QStringLiteral("Pressed"), cancel, false, State::Pressed);
    addDialogButton(page, QStringLiteral("Disabled"), cancel, false, State::Disabled);
    addDialogButton(page, QStringLiteral("Default"), save, true);
    addDialogButton(page, QStringLiteral("Default, focused"), save, true, State::Focused);
    addDialogButton(page, QStringLiteral("Default, disabled"), save, true, State::Disabled);
    for (const char* const name : {"strongButton", "plainButton"}) {
        for (const State state : {State::Normal, State::Hovered, State::Focused}) {
            auto* button = new QPushButton(QStringLiteral("Add music…"));
            button->setObjectName(QLatin1String(name));
            const QString kind = name == std::string_view("strongButton")
                                     ? QStringLiteral("Of a place, first")
                                     : QStringLiteral("Of a place");
            page.add(state == State::Normal    ? kind
                     : state == State::Hovered ? QStringLiteral("Hovered")
                                               : QStringLiteral("Focused"),
                     button, state);
        }
    }
}

Segments* makeSegments()
{
    auto* segments = new Segments(QStringLiteral("Search type"));
    for (const char* const title : {"Artist", "Tags", "Similar"})
        segments->addSegment(QString::fromLatin1(title));
    return segments;
}

void fillSegments(Page& page)
{
    page.add(QStringLiteral("First chosen"), makeSegments());
    Segments* last = makeSegments();
    last->setChosen(2);
    page.add(QStringLiteral("Last chosen"), last);
    const std::tuple<QString, State, int> ofOne[] = {{QStringLiteral("Hovered"), State::Hovered, 1},
                                                     {QStringLiteral("Pressed"), State::Pressed, 1},
                                                     {QStringLiteral("Focused"), State::Focused, 0}};
    for (const auto& [caption, state, number] : ofOne) {
        Segments* segments = makeSegments();
        page.add(caption, segments, state, segments->findChildren<QPushButton*>().at(number));
    }
    page.add(QStringLiteral("Disabled"), makeSegments(), State::Disabled);
    auto* wide = new Segments(QStringLiteral("Search type"));
    for (const char* const title : {"Interpretinnen und Interpreten", "Stichwörter", "Ähnliches"})
        wide->addSegment(QString::fromUtf8(title));
    page.add(QStringLiteral("Long text"), wide);
}

template <typename Box>
void addBoxes(Page& page, const QString& kind, const QString& text)
{
    const std::tuple<QString, State, bool> kinds[] = {
        {QStringLiteral("%1"), State::Normal, false},
        {QStringLiteral("%1, checked"), State::Normal, true},
        {QStringLiteral("%1, hovered"), State::Hovered, false},
        {QStringLiteral("%1, focused"), State::Focused, true},
        {QStringLiteral("%1, disabled"), State::Disabled, false},
        {QStringLiteral("%1, checked, disabled"), State::Disabled, true}};
    for (const auto& [caption, state, checked] : kinds) {
        auto* box = new Box(text);
        box->setAutoExclusive(false); // they show states, not a choice
        box->setChecked(checked);
        page.add(caption.arg(kind), box, state);
    }
}

void fillBoxes(Page& page)
{
    addBoxes<QCheckBox>(page, QStringLiteral("Box"), QStringLiteral("Keep moving texts still"));
    addBoxes<QRadioButton>(page, QStringLiteral("Choice"), QStringLiteral("As the desktop"));
}

void fillTags(Page& page)
{
    page.add(QStringLiteral("Normal"), new OfferedTags);
    for (const auto& [caption, state] : {std::pair{QStringLiteral("Hovered"), State::Hovered},
                                         std::pair{QStringLiteral("Focused"), State::Focused}}) {
        auto* tags = new OfferedTags;
        page.add(caption, tags, state, tags->findChild<QPushButton*>());
    }
}

} // namespace

QList<Demo> buttonDemos()
{
    return {{QStringLiteral("tool-button"), QStringLiteral("Buttons of the bar"), fillToolButtons},
            {QStringLiteral("push-button"), QStringLiteral("Buttons"), fillPushButtons},
            {QStringLiteral("segments"), QStringLiteral("Segments"), fillSegments},
            {QStringLiteral("boxes"), QStringLiteral("Boxes and choices"), fillBoxes},
            {QStringLiteral("offered-tags"), QStringLiteral("Offered tags"), fillTags}};
}

} // namespace zib
