// SPDX-License-Identifier: GPL-3.0-or-later
// The writing half of keyed archives.
#include "records/BinaryPropertyListWriter.h"
#include "records/KeyedArchive.h"
#include "records/KeyedArchiveWords.h"

#include <QHash>

#include <vector>

namespace zib {

using namespace archive;

namespace {

constexpr qint64 secondsFrom1970To2001 = 978307200;

PropertyValue uid(qint64 object)
{
    return Record::make({{uidKey(), object}});
}

class Archiver {
  public:
    QByteArray archive(const PropertyValue& root)
    {
        objects_.append(QString(nullName));
        const qint64 top = add(root, 0);
        return valid_ ? writeBinaryPropertyList(
                            Record::make({{versionKey(), version},
                                          {objectsKey(), objects_},
                                          {archiverKey(), QString(archiverName)},
                                          {topKey(), Record::make({{rootKey(), uid(top)}})}}))
                      : QByteArray();
    }

  private:
    /// An object's number is taken when it is met, before those of its parts.
    qint64 reserve(const PropertyValue& value = {})
    {
        objects_.append(value);
        return objects_.size() - 1;
    }
    qint64 fail()
    {
        valid_ = false;
        return 0;
    }
    qint64 classOf(const QStringList& names)
    {
        auto known = classes_.constFind(names.first());
        if (known == classes_.constEnd())
            known = classes_.insert(names.first(), reserve(Record::make({{classNameKey(), names.first()},
                                                                         {classesKey(), names}})));
        return *known;
    }

    qint64 add(const PropertyValue& value, int depth)
    {
        return std::visit([this, depth](const auto& each) { return addValue(each, depth); }, value.variant());
    }

    qint64 addValue(std::monostate, int) { return fail(); }
    qint64 addValue(bool value, int) { return reserve(value); }
    qint64 addValue(qint64 value, int) { return reserve(value); }
    qint64 addValue(double value, int) { return reserve(value); }
    qint64 addValue(const QByteArray& data, int) { return reserve(data); }
    qint64 addValue(const QString& text, int)
    {
        const auto known = texts_.constFind(text);
        return known != texts_.constEnd() ? *known : *texts_.insert(text, reserve(text));
    }
    qint64 addValue(const QDateTime& date, int)
    {
        if (!date.isValid())
            return fail();
        const qint64 object = reserve();
        const auto seconds = double(date.toSecsSinceEpoch() - secondsFrom1970To2001);
        objects_[object] = Record::make({{timeKey(), seconds}, {classKey(), uid(classOf(dateClasses()))}});
        return object;
    }
    qint64 addValue(const PropertyArray& array, int depth)
    {
        if (depth >= keyedArchiveDepth)
            return fail();
        const qint64 object = reserve();
        const PropertyArray elements = references(array, depth);
        objects_[object] =
            Record::make({{elementsKey(), elements}, {classKey(), uid(classOf(arrayClasses()))}});
        return object;
    }
    qint64 addValue(const Record& record, int depth)
    {
        for (const auto& [known, object] : records_)
            if (known.isSame(record))
                return object;
        if (depth >= keyedArchiveDepth)
            return fail();
        const qint64 object = reserve();
        records_.push_back({record, object});
        PropertyArray names;
        PropertyArray values;
        for (const RecordKey key : record.keys()) {
            names.append(QString::fromUtf8(key.name().data(), qsizetype(key.name().size())));
            values.append(record.value(key));
        }
        names = references(names, depth);
        values = references(values, depth);
        objects_[object] = Record::make(
            {{keysKey(), names}, {elementsKey(), values}, {classKey(), uid(classOf(dictionaryClasses()))}});
        return object;
    }
    PropertyArray references(const PropertyArray& values, int depth)
    {
        PropertyArray result;
        for (const PropertyValue& value : values)
            result.append(uid(add(value, depth + 1)));
        return result;
    }

    PropertyArray objects_;
    QHash<QString, qint64> texts_;
    QHash<QString, qint64> classes_;
    std::vector<std::pair<Record, qint64>> records_;
    bool valid_ = true;
};

} // namespace

QByteArray archivedData(const PropertyValue& root)
{
    return Archiver().archive(root);
}

} // namespace zib
