// SPDX-License-Identifier: GPL-3.0-or-later
#include "views/SongInformationWindow.h"

#include "views/Theme.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace zib {

namespace {

constexpr int greatestYear = 9999;
constexpr int greatestNumber = 999;
constexpr int numberWidth = 64;
constexpr int comfortableWidth = 420;

QString textOf(const QLineEdit* field)
{
    return field != nullptr ? field->text() : QString();
}

} // namespace

SongInformationWindow::SongInformationWindow(FileViewController& songs, QWidget* parent)
    : QDialog(parent)
    , songs_(songs)
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
    for (QLineEdit* field : {name_, artist_, album_, genre_, composer_, year_})
        if (field != nullptr)
            form->addRow(field->accessibleName(), field);
    if (one) {
        trackNumber_ = makeField(tr("Track number"), shown.trackNumber, greatestNumber);
        trackTotal_ = makeField(tr("Tracks in total"), shown.trackTotal, greatestNumber);
        discNumber_ = makeField(tr("Disc number"), shown.discNumber, greatestNumber);
        discTotal_ = makeField(tr("Discs in total"), shown.discTotal, greatestNumber);
        addPair(form, tr("Track"), trackNumber_, trackTotal_);
        addPair(form, tr("Disc"), discNumber_, discTotal_);
    } else {
        auto* hint = new QLabel(tr("An empty field leaves each song what it has. Only the year is set in any "
                                   "case: empty, the songs have none."),
                                this);
        hint->setWordWrap(true);
        form->addRow(hint);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
    for (QAbstractButton* button : buttons->buttons())
        button->setIcon({}); // the words say it
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(2 * Theme::between);
    layout->addLayout(form);
    layout->addWidget(buttons);
    resize(comfortableWidth, sizeHint().height());
    (one ? name_ : artist_)->selectAll();
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
            .discTotal = textOf(discTotal_)};
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
