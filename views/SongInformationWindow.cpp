// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongInformationWindow.h"

#include "views/CoverField.h"
#include "views/Theme.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace zib {

namespace {

constexpr int greatestYear = 9999;
constexpr int greatestNumber = 999;
constexpr int numberWidth = 64;
constexpr int comfortableWidth = 560;

QString textOf(const QLineEdit* field)
{
    return field != nullptr ? field->text() : QString();
}

} // namespace

SongInformationWindow::SongInformationWindow(FileViewController& songs, QWidget* parent)
    : QDialog(parent)
    , songs_(songs)
    , cover_(new CoverField(songs.cover(), songs.canChangeCover(), this))
{
    const SongInformation shown = songs_.information();
    const bool one = songs_.hasOneSong();
    setWindowTitle(one ? tr("Song information") : tr("Information for several songs"));
    setModal(true);
    if (one)
        name_ = makeField(tr("Name"), shown.name);
    artist_ = makeField(tr("Artist"), shown.artist);
    album_ = makeField(tr("Album"), shown.album);
    genre_ = makeField(tr("Genre"), shown.genre);
    composer_ = makeField(tr("Composer"), shown.composer);
    year_ = makeField(tr("Year"), shown.year, greatestYear);

    auto* form = new QFormLayout;
    form->setHorizontalSpacing(Theme::between);
    form->setVerticalSpacing(Theme::between);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (QLineEdit* field : {name_, artist_, album_, genre_, composer_, year_})
        if (field != nullptr)
            form->addRow(field->accessibleName(), field);
    if (one) {
        addOneSongOnly(form, shown);
    } else {
        addHint(form,
                tr("An empty field leaves each song what it has. Only the year is set in any case: empty, "
                   "the songs have none."));
        if (songs_.canChangeCover())
            addHint(form, tr("A new cover goes into all of them."));
    }
    auto* sides = new QHBoxLayout;
    sides->setSpacing(3 * Theme::between);
    sides->addWidget(cover_);
    sides->addLayout(form, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(3 * Theme::between, 3 * Theme::between, 3 * Theme::between, Theme::groups);
    layout->setSpacing(3 * Theme::between);
    layout->addLayout(sides, 1);
    layout->addLayout(makeButtons());
    connect(cover_, &CoverField::changed, this, [this] { songs_.textDidChange(); });
    resize(comfortableWidth, sizeHint().height());
    (one ? name_ : artist_)->setFocus();
    (one ? name_ : artist_)->selectAll();
}

void SongInformationWindow::addOneSongOnly(QFormLayout* form, const SongInformation& shown)
{
    trackNumber_ = makeField(tr("Track number"), shown.trackNumber, greatestNumber);
    trackTotal_ = makeField(tr("Tracks in total"), shown.trackTotal, greatestNumber);
    discNumber_ = makeField(tr("Disc number"), shown.discNumber, greatestNumber);
    discTotal_ = makeField(tr("Discs in total"), shown.discTotal, greatestNumber);
    addPair(form, tr("Track"), trackNumber_, trackTotal_);
    addPair(form, tr("Disc"), discNumber_, discTotal_);
}

QLayout* SongInformationWindow::makeButtons()
{
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
    for (QAbstractButton* button : buttons->buttons())
        button->setIcon({}); // the words say it
    buttons->button(QDialogButtonBox::Save)->setToolTip(tr("Ctrl+Return"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(QKeySequence(int(Qt::CTRL) | key), this), &QShortcut::activated, this,
                &QDialog::accept);
    auto* row = new QHBoxLayout;
    row->addWidget(buttons);
    return row;
}

SongInformation SongInformationWindow::information() const
{
    return {.name = textOf(name_),
            .artist = textOf(artist_),
            .album = textOf(album_),
            .genre = textOf(genre_),
            .composer = textOf(composer_),
            .year = textOf(year_),
            .trackNumber = textOf(trackNumber_),
            .trackTotal = textOf(trackTotal_),
            .discNumber = textOf(discNumber_),
            .discTotal = textOf(discTotal_),
            .cover = cover_->newCover()};
}

/// greatest: of a number, else 0.
QLineEdit* SongInformationWindow::makeField(const QString& name, const QString& text, int greatest)
{
    auto* field = new QLineEdit(text, this);
    field->setAccessibleName(name);
    if (greatest > 0) {
        field->setValidator(new QIntValidator(0, greatest, field));
        field->setFixedWidth(numberWidth);
    }
    connect(field, &QLineEdit::textChanged, this, [this] { songs_.textDidChange(); });
    return field;
}

void SongInformationWindow::addHint(QFormLayout* form, const QString& text)
{
    auto* hint = new QLabel(text, this);
    hint->setObjectName(QStringLiteral("hint"));
    hint->setWordWrap(true);
    form->addRow(hint);
}

void SongInformationWindow::addPair(QFormLayout* form, const QString& label, QLineEdit* first,
                                    QLineEdit* second)
{
    auto* pair = new QHBoxLayout;
    pair->setSpacing(Theme::between);
    pair->addWidget(first);
    pair->addWidget(new QLabel(tr("of"), this));
    pair->addWidget(second);
    pair->addStretch();
    form->addRow(label, pair);
}

} // namespace zib
