// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/ShareDialog.h"

#include "controller/ShareWindowController.h"
#include "views/Theme.h"
#include "views/TokenField.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace zib {

namespace {

constexpr int comfortableWidth = 440;
constexpr int descriptionLines = 3;
constexpr int longestTitle = 200;
constexpr int longestName = 40;

QLabel* makeHint(const QString& text, QWidget* parent)
{
    auto* hint = new QLabel(text, parent);
    hint->setObjectName(QStringLiteral("hint"));
    hint->setWordWrap(true);
    return hint;
}

} // namespace

ShareDialog::ShareDialog(const ShareForm& form, QWidget* parent)
    : QDialog(parent)
    , title_(new QLineEdit(form.title, this))
    , description_(new QPlainTextEdit(form.description, this))
    , tags_(new TokenField(tr("Tags"), ShareWindowController::tagsKept, this))
{
    setWindowTitle(tr("Share playlist"));
    setModal(true);
    title_->setAccessibleName(tr("Title"));
    title_->setMaxLength(longestTitle);
    description_->setAccessibleName(tr("Description"));
    description_->setTabChangesFocus(true);
    description_->setFixedHeight(descriptionLines * description_->fontMetrics().lineSpacing() +
                                 2 * Theme::between);
    description_->setPlaceholderText(tr("What is it about?"));
    tags_->setPlaceholderText(tr("Up to five, with commas between"));
    tags_->setTokens(form.tags.split(QLatin1Char(',')));

    auto* fields = new QFormLayout;
    fields->setHorizontalSpacing(Theme::between);
    fields->setVerticalSpacing(Theme::between);
    fields->addRow(tr("Title"), title_);
    fields->addRow(tr("Description"), description_);
    fields->addRow(tr("Tags"), tags_);
    if (form.userName) {
        userName_ = new QLineEdit(*form.userName, this);
        userName_->setAccessibleName(tr("Your name"));
        userName_->setMaxLength(longestName);
        fields->addRow(tr("Your name"), userName_);
        fields->addRow(QString(), makeHint(tr("Others see this name beside your playlists. You are asked for "
                                              "it this once."),
                                           this));
        connect(userName_, &QLineEdit::textChanged, this, &ShareDialog::enableOk);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    for (QAbstractButton* button : buttons->buttons())
        button->setIcon({}); // the words say it
    ok_ = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(title_, &QLineEdit::textChanged, this, &ShareDialog::enableOk);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(2 * Theme::between);
    layout->addLayout(fields);
    layout->addWidget(buttons);
    resize(comfortableWidth, sizeHint().height());
    connect(tags_, &TokenField::heightChanged, this, [this, layout] {
        layout->activate();
        resize(width(), qMax(height(), layout->totalHeightForWidth(width())));
    });
    title_->selectAll();
    enableOk();
}

ShareForm ShareDialog::form() const
{
    return {.title = title_->text().trimmed(),
            .description = description_->toPlainText().simplified(), // it is sent as one line
            .tags = tags_->tokens().join(QLatin1Char(',')),
            .userName = userName_ != nullptr ? std::optional(userName_->text()) : std::nullopt};
}

void ShareDialog::enableOk()
{
    const auto isFilled = [](const QLineEdit* field) {
        return field == nullptr || !field->text().trimmed().isEmpty();
    };
    ok_->setEnabled(isFilled(title_) && isFilled(userName_));
}

std::optional<ShareForm> WidgetShareWindow::runModal(const ShareForm& form)
{
    ShareDialog dialog(form, QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.form()) : std::nullopt;
}

} // namespace zib
