// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/TagProcess.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QProcess>

#include <iostream>
#include <string>

#include <sys/resource.h>

namespace zib {

namespace {

Q_LOGGING_CATEGORY(log, "zib.catalogue.tags")

constexpr int startMilliseconds = 10000;
constexpr int fileMilliseconds = 20000;
constexpr int sliceMilliseconds = 100; ///< how soon a stop is noticed
constexpr rlim_t mostMemory = rlim_t(512) << 20;

QByteArray encoded(const std::optional<SongTags>& tags)
{
    if (!tags)
        return "{}";
    const QJsonObject object{{QStringLiteral("artist"), tags->artist},
                             {QStringLiteral("album"), tags->album},
                             {QStringLiteral("title"), tags->title},
                             {QStringLiteral("genres"), QJsonArray::fromStringList(tags->genres)},
                             {QStringLiteral("year"), tags->year},
                             {QStringLiteral("track"), tags->track},
                             {QStringLiteral("seconds"), tags->seconds},
                             {QStringLiteral("disc"), tags->disc},
                             {QStringLiteral("milliseconds"), tags->milliseconds},
                             {QStringLiteral("date"), tags->date},
                             {QStringLiteral("label"), tags->label},
                             {QStringLiteral("country"), tags->country},
                             {QStringLiteral("releaseType"), tags->releaseType},
                             {QStringLiteral("releaseId"), tags->releaseId},
                             {QStringLiteral("lyrics"), tags->lyrics},
                             {QStringLiteral("hasPicture"), tags->hasPicture}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<SongTags> decoded(const QByteArray& line)
{
    const auto object = QJsonDocument::fromJson(line).object();
    if (object.isEmpty())
        return std::nullopt;
    SongTags tags;
    tags.artist = object.value(QLatin1String("artist")).toString();
    tags.album = object.value(QLatin1String("album")).toString();
    tags.title = object.value(QLatin1String("title")).toString();
    for (const auto genre : object.value(QLatin1String("genres")).toArray())
        tags.genres.append(genre.toString());
    tags.year = object.value(QLatin1String("year")).toInt();
    tags.track = object.value(QLatin1String("track")).toInt();
    tags.seconds = object.value(QLatin1String("seconds")).toInt();
    tags.disc = object.value(QLatin1String("disc")).toInt();
    tags.milliseconds = object.value(QLatin1String("milliseconds")).toInt();
    tags.date = object.value(QLatin1String("date")).toString();
    tags.label = object.value(QLatin1String("label")).toString();
    tags.country = object.value(QLatin1String("country")).toString();
    tags.releaseType = object.value(QLatin1String("releaseType")).toString();
    tags.releaseId = object.value(QLatin1String("releaseId")).toString();
    tags.lyrics = object.value(QLatin1String("lyrics")).toString();
    tags.hasPicture = object.value(QLatin1String("hasPicture")).toBool();
    return tags;
}

} // namespace

TagProcess::TagProcess(QString program, std::stop_token stop)
    : program_(std::move(program))
    , stop_(std::move(stop))
{
}

TagProcess::~TagProcess()
{
    if (process_) {
        process_->closeWriteChannel();
        process_->waitForFinished(1000);
    }
}

bool TagProcess::start()
{
    if (process_ && process_->state() == QProcess::Running)
        return true;
    process_ = std::make_unique<QProcess>();
    process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_->start(program_, {QStringLiteral("read-tags")});
    return process_->waitForStarted(startMilliseconds);
}

std::optional<SongTags> TagProcess::read(const QByteArray& path)
{
    if (!start()) {
        qCWarning(log).noquote() << "cannot start" << program_;
        return std::nullopt;
    }
    process_->write(path + '\0');
    const QDeadlineTimer deadline(fileMilliseconds);
    while (!process_->canReadLine()) {
        const bool alive =
            process_->waitForReadyRead(sliceMilliseconds) || process_->state() == QProcess::Running;
        if (alive && !deadline.hasExpired() && !stop_.stop_requested())
            continue;
        qCWarning(log).noquote() << "gave up on the tags of" << QString::fromLocal8Bit(path);
        process_->kill();
        process_->waitForFinished();
        process_.reset();
        return std::nullopt;
    }
    return decoded(process_->readLine());
}

void TagProcess::limitMemory()
{
    const rlimit memory{mostMemory, mostMemory};
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_DATA, &memory);
    ::setrlimit(RLIMIT_CORE, &noCore);
}

int TagProcess::run()
{
    limitMemory();
    TagFileReader reader;
    for (std::string path; std::getline(std::cin, path, '\0');)
        std::cout << encoded(reader.read(QByteArray::fromStdString(path))).constData() << std::endl;
    return 0;
}

} // namespace zib
