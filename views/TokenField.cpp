// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/TokenField.h"

#include "views/Theme.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QToolButton>

namespace zib {

namespace {

constexpr int margin = 5;
constexpr int narrowestEdit = 90;
constexpr int mostCharacters = 40;
constexpr QChar separator(u',');

} // namespace

TokenField::TokenField(const QString& name, int tokensKept, QWidget* parent)
    : QFrame(parent)
    , edit_(new QLineEdit(this))
    , tokensKept_(tokensKept)
{
    setFocusProxy(edit_);
    edit_->setAccessibleName(name);
    edit_->setMaxLength(mostCharacters);
    edit_->installEventFilter(this);
    connect(edit_, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (text.contains(separator))
            takeTyped();
    });
    connect(edit_, &QLineEdit::editingFinished, this, &TokenField::takeTyped);
    arrange();
}

QStringList TokenField::tokens() const
{
    QStringList result;
    for (const QToolButton* pill : pills_)
        result.append(pill->property("token").toString());
    for (const QString& typed : edit_->text().split(separator))
        if (!typed.trimmed().isEmpty())
            result.append(typed.trimmed());
    return result;
}

void TokenField::setTokens(const QStringList& tokens)
{
    while (!pills_.isEmpty())
        removeToken(pills_.last());
    for (const QString& token : tokens)
        addToken(token);
    arrange();
}

void TokenField::setPlaceholderText(const QString& text)
{
    placeholder_ = text;
    arrange();
}

void TokenField::takeTyped()
{
    const QStringList typed = edit_->text().split(separator);
    edit_->clear();
    for (const QString& token : typed)
        addToken(token);
    arrange();
}

void TokenField::addToken(const QString& text)
{
    const QString token = text.trimmed();
    if (token.isEmpty())
        return;
    auto* pill = new QToolButton(this);
    pill->setObjectName(QStringLiteral("token"));
    pill->setProperty("token", token);
    // An ampersand would be taken for the mark of a shortcut.
    pill->setText(QString(token).replace(QLatin1Char('&'), QLatin1String("&&")) + QStringLiteral("  \u00d7"));
    pill->setAccessibleName(tr("Remove %1").arg(token));
    pill->setToolTip(tr("Click to remove this tag"));
    pill->setFocusPolicy(Qt::TabFocus);
    connect(pill, &QToolButton::clicked, this, [this, pill] {
        removeToken(pill);
        edit_->setFocus();
        arrange();
    });
    pill->show();
    pills_.append(pill);
}

void TokenField::removeToken(QToolButton* pill)
{
    pills_.removeOne(pill);
    pill->hide();
    pill->deleteLater(); // its own click may be what is being handled
}

bool TokenField::takeKey(int key)
{
    const bool ends = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (ends && !edit_->text().trimmed().isEmpty()) {
        takeTyped();
        return true;
    }
    if (key == Qt::Key_Backspace && edit_->text().isEmpty() && !pills_.isEmpty()) {
        const QString token = pills_.last()->property("token").toString();
        removeToken(pills_.last());
        edit_->setText(token);
        arrange();
        return true;
    }
    return false;
}

bool TokenField::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == edit_ && event->type() == QEvent::KeyPress &&
        takeKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    if (watched == edit_ && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        setProperty("edited", event->type() == QEvent::FocusIn);
        style()->polish(this);
    }
    return QFrame::eventFilter(watched, event);
}

void TokenField::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    arrange();
}

void TokenField::mousePressEvent(QMouseEvent* event)
{
    QFrame::mousePressEvent(event);
    edit_->setFocus(Qt::MouseFocusReason);
}

void TokenField::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange)
        arrange();
}

/// Line by line, as words are set; the text being typed comes last.
void TokenField::arrange()
{
    const QRect area = rect().adjusted(margin, margin, -margin, -margin);
    const int lineHeight = Theme::rowHeight;
    int x = area.left();
    int y = area.top();
    const auto place = [&](QWidget* item, int width, bool takesRest) {
        if (x > area.left() && x + width > area.right()) {
            x = area.left();
            y += lineHeight + Theme::within;
        }
        const int taken = takesRest ? area.right() - x : qMin(width, area.width());
        item->setGeometry(QStyle::visualRect(layoutDirection(), rect(), QRect(x, y, taken, lineHeight)));
        x += taken + Theme::within;
    };
    for (int i = 0; i < pills_.size(); ++i) {
        QToolButton* const pill = pills_[i];
        pill->setProperty("leftOut", i >= tokensKept_);
        style()->unpolish(pill);
        style()->polish(pill);
        place(pill, pill->sizeHint().width(), false);
    }
    edit_->setPlaceholderText(pills_.isEmpty() ? placeholder_ : QString());
    place(edit_, narrowestEdit, true);
    const int before = height();
    setFixedHeight(y + lineHeight + margin);
    if (height() != before)
        Q_EMIT heightChanged();
    QWidget* next = edit_;
    for (auto pill = pills_.crbegin(); pill != pills_.crend(); ++pill) {
        setTabOrder(*pill, next);
        next = *pill;
    }
}

} // namespace zib
