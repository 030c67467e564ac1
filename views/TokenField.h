// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QStringList>

class QLineEdit;
class QToolButton;

namespace zib {

/// A field for several short texts, each shown as a pill once a comma or Return ends it. A click on a pill
/// removes it, and Backspace before anything is typed takes the last one back into the text.
class TokenField : public QFrame {
    Q_OBJECT

  public:
    /// @param name what the field is called.
    /// @param tokensKept pills beyond so many are drawn as what will be left out.
    TokenField(const QString& name, int tokensKept, QWidget* parent);

    /// All tokens, with what is being typed; none is empty or holds a comma.
    [[nodiscard]] QStringList tokens() const;
    void setTokens(const QStringList& tokens);
    /// What the empty field says.
    void setPlaceholderText(const QString& text);

  Q_SIGNALS:
    /// It takes another number of lines than before.
    void heightChanged();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void takeTyped();
    bool takeKey(int key);
    void addToken(const QString& text);
    void removeToken(QToolButton* pill);
    void arrange();

    QLineEdit* edit_;
    QList<QToolButton*> pills_;
    QString placeholder_;
    int tokensKept_;
};

} // namespace zib
