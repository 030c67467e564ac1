// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a property list that this program alone can read, and binary lists of another writer that it cannot.
// A program of its own: starting a process blinds the thread sanitizer for the tests that come after.
#include "records/PropertyList.h"
#include "records/PropertyListWriter.h"
#include "tests/records/EveryKindOfValue.h"

#include <QProcess>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace zib {
namespace {

TEST(PropertyListPython, AnotherReaderAgreesAndBinaryReadsTheSame)
{
    const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
    ASSERT_FALSE(python.isEmpty());
    QProcess process;
    process.start(python,
                  {QStringLiteral("-c"), QStringLiteral("import sys, plistlib\n"
                                                        "value = plistlib.loads(sys.stdin.buffer.read())\n"
                                                        "assert value['Duration'] == 2**63 - 1\n"
                                                        "assert value['Name'].endswith('line\\rreturn')\n"
                                                        "sys.stdout.buffer.write(plistlib.dumps("
                                                        "value, fmt=plistlib.FMT_BINARY))")});
    process.write(writePropertyList(everyKindOfValue()));
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished(60000));
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    const QByteArray binary = process.readAllStandardOutput();
    ASSERT_TRUE(binary.startsWith("bplist00"));
    const auto value = readPropertyList(binary);
    ASSERT_TRUE(value) << qUtf8Printable(value.error());
    EXPECT_EQ(*value, PropertyValue(everyKindOfValue()));

    // Cut or altered anywhere, it is an error or another value, but never a crash.
    for (qsizetype length = 0; length < binary.size(); ++length)
        static_cast<void>(readPropertyList(QByteArrayView(binary).first(length)));
    for (qsizetype place = 0; place < binary.size(); ++place) {
        for (const int change : {1, 0x80, 0xff}) {
            QByteArray altered = binary;
            altered[place] = static_cast<char>(altered[place] ^ change);
            static_cast<void>(readPropertyList(altered));
        }
    }
}

} // namespace
} // namespace zib
