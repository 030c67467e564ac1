// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/FilterField.h"
#include "views/SearchBar.h"
#include "views/TokenField.h"
#include "views/gallery/Demos.h"

#include <QLineEdit>
#include <QMenu>

namespace zib {

namespace {

using State = Page::State;

/// A field in the states of every field.
template <typename Make>
void addFields(Page& page, Make make)
{
    const std::tuple<QString, State, QString> kinds[] = {
        {QStringLiteral("Empty"), State::Normal, QString()},
        {QStringLiteral("Normal"), State::Normal, QStringLiteral("dream pop")},
        {QStringLiteral("Hovered"), State::Hovered, QStringLiteral("dream pop")},
        {QStringLiteral("Focused"), State::Focused, QStringLiteral("dream pop")},
        {QStringLiteral("Empty, focused"), State::Focused, QString()},
        {QStringLiteral("Disabled"), State::Disabled, QStringLiteral("dream pop")},
        {QStringLiteral("Long text"), State::Normal, longText}};
    for (const auto& [caption, state, text] : kinds) {
        QLineEdit* field = make();
        field->setText(text);
        field->setCursorPosition(0);
        field->setFixedWidth(260);
        page.add(caption, field, state);
    }
}

void fillText(Page& page)
{
    addFields(page, [] {
        auto* field = new QLineEdit;
        field->setPlaceholderText(QStringLiteral("http://music.example"));
        return field;
    });
}

void fillFilter(Page& page)
{
    addFields(page, [] { return new FilterField; });
}

SearchBar* makeSearch(const QString& text)
{
    auto* bar = new SearchBar;
    bar->setMaximumWidth(440);
    bar->setPlaceholder(QStringLiteral("Enter an artist"));
    bar->findChild<QLineEdit*>()->setText(text);
    return bar;
}

void fillSearch(Page& page)
{
    page.add(QStringLiteral("Empty"), makeSearch({}));
    page.add(QStringLiteral("With text"), makeSearch(QStringLiteral("Kestrel Motorway")));
    SearchBar* focused = makeSearch(QStringLiteral("Kestrel Motorway"));
    page.add(QStringLiteral("Focused"), focused, State::Focused, focused->findChild<QLineEdit*>());
    SearchBar* busy = makeSearch(QStringLiteral("Kestrel Motorway"));
    busy->setBusy(true);
    page.add(QStringLiteral("Busy"), busy);
    page.add(QStringLiteral("Long text"), makeSearch(longText));
    page.add(QStringLiteral("Disabled"), makeSearch({}), State::Disabled);
}

TokenField* makeTokens(const QStringList& tokens)
{
    auto* field = new TokenField(QStringLiteral("Tags"), 4, nullptr);
    field->setPlaceholderText(QStringLiteral("rock, quiet, 1990s"));
    field->setFixedWidth(400);
    field->setTokens(tokens);
    return field;
}

void fillTokens(Page& page)
{
    const QStringList some{QStringLiteral("dream pop"), QStringLiteral("quiet")};
    page.add(QStringLiteral("Empty"), makeTokens({}));
    page.add(QStringLiteral("With tokens"), makeTokens(some));
    TokenField* edited = makeTokens(some);
    page.add(QStringLiteral("Focused"), edited, State::Focused, edited->findChild<QLineEdit*>());
    TokenField* chosen = makeTokens(some);
    page.add(QStringLiteral("Token focused"), chosen, State::Focused,
             chosen->findChild<QWidget*>(QStringLiteral("token")));
    page.add(QStringLiteral("More than are kept"),
             makeTokens(some + some + QStringList{QStringLiteral("shoegaze"), QStringLiteral("1990s")}));
}

void fillMenu(Page& page)
{
    auto* menu = new QMenu;
    menu->setWindowFlags(Qt::Widget);
    menu->addAction(QStringLiteral("Play"));
    QAction* hovered = menu->addAction(QStringLiteral("Add to playlist"));
    hovered->setShortcut(Qt::CTRL | Qt::Key_P);
    menu->addAction(QStringLiteral("Download"))->setEnabled(false);
    menu->addSeparator();
    QAction* checked = menu->addAction(QStringLiteral("Album"));
    checked->setCheckable(true);
    checked->setChecked(true);
    QAction* unchecked = menu->addAction(QStringLiteral("Genre"));
    unchecked->setCheckable(true);
    menu->addMenu(QStringLiteral("Sort by"));
    menu->setActiveAction(hovered);
    page.add(QStringLiteral("Second line chosen"), menu);
}

} // namespace

QList<Demo> fieldDemos()
{
    return {{QStringLiteral("text-field"), QStringLiteral("Text field"), fillText},
            {QStringLiteral("filter-field"), QStringLiteral("Filter field"), fillFilter},
            {QStringLiteral("search-bar"), QStringLiteral("Search"), fillSearch},
            {QStringLiteral("token-field"), QStringLiteral("Token field"), fillTokens},
            {QStringLiteral("menu"), QStringLiteral("Menu"), fillMenu}};
}

} // namespace zib
