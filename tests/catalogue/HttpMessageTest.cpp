// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts requests that a server reads otherwise than their sender or a proxy did: lengths that disagree,
// escapes that hide a path, hosts that a foreign page may choose, ranges off by one.
#include "catalogue/HttpMessage.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zib {
namespace {

using namespace Qt::StringLiterals;

const HttpHeaders localHost{{"Host", "127.0.0.1:80"}};

TEST(HttpMessage, RefusesWhatIsMalformed)
{
    struct Case {
        const char* name;
        const char* method;
        QByteArray target;
        HttpHeaders headers;
        int status;
    };
    const QList<Case> cases{
        {"no host", "GET", "/", {}, 400},
        {"two hosts", "GET", "/", {{"Host", "localhost"}, {"host", "localhost"}}, 400},
        {"host of a foreign page", "GET", "/", {{"Host", "evil.example"}}, 421},
        {"host with a path", "GET", "/", {{"Host", "localhost/x"}}, 400},
        {"host with a second line", "GET", "/", {{"Host", "localhost\n"}}, 200},
        {"host with markup", "GET", "/", {{"Host", "<b>"}}, 400},
        {"a post without a length", "POST", "/", localHost, 411},
        {"a post in chunks", "POST", "/", localHost + HttpHeaders{{"Transfer-Encoding", "chunked"}}, 411},
        {"a post", "POST", "/", localHost + HttpHeaders{{"Content-Length", "1048576"}}, 200},
        {"a post that is too long", "POST", "/", localHost + HttpHeaders{{"Content-Length", "1048577"}}, 413},
        {"a post of an endless length", "POST", "/",
         localHost + HttpHeaders{{"Content-Length", QByteArray(40, '9')}}, 413},
        {"a post of a foreign page", "POST", "/",
         localHost + HttpHeaders{{"Content-Length", "1"}, {"Origin", "http://evil.example"}}, 403},
        {"put", "PUT", "/", localHost, 405},
        {"unknown method", "BREW", "/", localHost, 405},
        {"a body", "GET", "/", localHost + HttpHeaders{{"Content-Length", "5"}}, 413},
        {"an empty body", "GET", "/", localHost + HttpHeaders{{"Content-Length", "0"}}, 200},
        {"negative length", "GET", "/", localHost + HttpHeaders{{"Content-Length", "-1"}}, 400},
        {"two lengths", "GET", "/", localHost + HttpHeaders{{"Content-Length", "0"}, {"content-length", "0"}},
         400},
        {"a list of lengths", "GET", "/", localHost + HttpHeaders{{"Content-Length", "0, 5"}}, 400},
        {"an endless length", "GET", "/", localHost + HttpHeaders{{"Content-Length", QByteArray(40, '9')}},
         413},
        {"chunks", "GET", "/", localHost + HttpHeaders{{"Transfer-Encoding", "chunked"}}, 413},
        {"length and chunks", "GET", "/",
         localHost + HttpHeaders{{"Content-Length", "0"}, {"Transfer-Encoding", "chunked"}}, 400},
        {"two ranges headers", "GET", "/",
         localHost + HttpHeaders{{"Range", "bytes=0-"}, {"Range", "bytes=1-"}}, 400},
        {"dot segments", "GET", "/audio/../etc", localHost, 400},
        {"escaped dot segments", "GET", "/audio/%2e%2E/etc", localHost, 400},
        {"escaped slash makes a dot segment", "GET", "/audio/..%2fetc", localHost, 400},
        {"backslash", "GET", "/audio/..%5cetc", localHost, 400},
        {"escaped NUL", "GET", "/a%00b", localHost, 400},
        {"NUL in the query", "GET", "/a?b=%00", localHost, 400},
        {"half an escape", "GET", "/a%4", localHost, 400},
        {"no hexadecimal escape", "GET", "/a%zz", localHost, 400},
        {"bad escape in the query", "GET", "/?a=%", localHost, 400},
        {"no UTF-8", "GET", "/%ff", localHost, 400},
        {"overlong UTF-8", "GET", "/%c0%ae%c0%ae/", localHost, 400},
        {"no path", "GET", "*", localHost, 400},
        {"an address for a proxy", "GET", "http://evil.example/", localHost, 400},
        {"longest target", "GET", '/' + QByteArray(longestRequestTarget - 1, 'a'), localHost, 200},
        {"too long", "GET", '/' + QByteArray(longestRequestTarget, 'a'), localHost, 414},
        {"three dots are a name", "HEAD", "/...", localHost, 200},
    };
    for (const auto& [name, method, target, headers, status] : cases) {
        const auto request = checkedRequest(method, target, headers, HostPolicy::LoopbackOnly);
        EXPECT_EQ(request ? 200 : request.error(), status) << name;
    }
}

TEST(HttpMessage, TakesTheHostsOfThisMachineOnly)
{
    for (const char* host : {"127.0.0.1", "127.0.0.1:8344", "LOCALHOST:1", "localhost", "[::1]:65535"})
        EXPECT_TRUE(checkedRequest("GET", "/", {{"Host", host}}, HostPolicy::LoopbackOnly)) << host;
    for (const char* host :
         {"example.org", "[::2]", "127.0.0.2", "localhost.", "localhost:", "localhost:port"})
        EXPECT_FALSE(checkedRequest("GET", "/", {{"Host", host}}, HostPolicy::LoopbackOnly)) << host;
    EXPECT_TRUE(checkedRequest("GET", "/", {{"Host", "music.example.org:80"}}, HostPolicy::AnyHost));
}

TEST(HttpMessage, ReadsQueriesAsClientsSendThem)
{
    using Parameters = QList<std::pair<QString, QString>>;
    const QList<std::pair<QByteArray, Parameters>> cases{
        {"", {}},
        {"&format=xml", {{u"format"_s, u"xml"_s}}},
        {"name=&name=Some+Band", {{u"name"_s, u""_s}, {u"name"_s, u"Some Band"_s}}},
        {"name=Simon+&+Garfunkel&format=xml", {{u"name"_s, u"Simon & Garfunkel"_s}, {u"format"_s, u"xml"_s}}},
        {"name=Bj%C3%B6rk%5E2.00", {{u"name"_s, u"Björk^2.00"_s}}},
        {"name=Bj\xC3\xB6rk^2.00", {{u"name"_s, u"Björk^2.00"_s}}},
        {"a=b=c", {{u"a"_s, u"b=c"_s}}},
        {"a=1%2B1", {{u"a"_s, u"1+1"_s}}},
        {"alone", {{u"alone"_s, u""_s}}},
    };
    for (const auto& [query, parameters] : cases)
        EXPECT_EQ(parsedQuery(query), parameters) << query.constData();
}

TEST(HttpMessage, MapsRanges)
{
    const ByteRange whole{ByteRange::Whole, 0, 100};
    const auto part = [](qint64 offset, qint64 length) { return ByteRange{ByteRange::Part, offset, length}; };
    const ByteRange none{ByteRange::Unsatisfiable};
    const QList<std::pair<const char*, ByteRange>> cases{
        {"", whole},
        {"bytes=0-0", part(0, 1)},
        {"bytes=10-19", part(10, 10)},
        {"Bytes=10-19", part(10, 10)},
        {"bytes= 10 - 19 ", part(10, 10)},
        {"bytes=40-", part(40, 60)},
        {"bytes=40-100", part(40, 60)}, // a player asks up to the length, one too far
        {"bytes=0-99999999999999999999999", part(0, 100)},
        {"bytes=99-99", part(99, 1)},
        {"bytes=100-", none},
        {"bytes=99999999999999999999999-", none},
        {"bytes=-10", part(90, 10)},
        {"bytes=-1000", part(0, 100)},
        {"bytes=-0", none},
        {"bytes=-", whole},
        {"bytes=20-10", whole},
        {"bytes=0-1,5-6", whole},
        {"bytes=a-b", whole},
        {"bytes=--5", whole},
        {"bytes=+1-5", whole},
        {"items=0-1", whole},
        {"bytes", whole},
    };
    for (const auto& [header, range] : cases)
        EXPECT_EQ(byteRange(header, 100), range) << header;
    EXPECT_EQ(byteRange("bytes=0-", 0), none);
    EXPECT_EQ(byteRange("bytes=-5", 0), none);
}

class FileReply : public testing::Test {
  protected:
    void write(const QByteArray& bytes)
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    [[nodiscard]] QString path() const { return folder_.filePath(QStringLiteral("song.mp3")); }
    [[nodiscard]] std::shared_ptr<const OpenFile> opened() const
    {
        return OpenFile::open(QFile::encodeName(path()));
    }

    QTemporaryDir folder_;
};

TEST_F(FileReply, HeedsConditions)
{
    write("0123456789");
    const auto file = opened();
    ASSERT_TRUE(file);
    const auto tag = file->entityTag();
    struct Case {
        const char* name;
        QByteArray range, ifRange, ifNoneMatch;
        int status;
    };
    const QList<Case> cases{
        {"plain", "", "", "", 200},
        {"range", "bytes=2-3", "", "", 206},
        {"range of this file", "bytes=2-3", tag, "", 206},
        {"range of another file", "bytes=2-3", "\"other\"", "", 200},
        {"a weak tag cannot join parts", "bytes=2-3", "W/" + tag, "", 200},
        {"range since a date", "bytes=2-3", "Sat, 29 Oct 1994 19:43:31 GMT", "", 200},
        {"range behind the end of another file", "bytes=99-", "\"other\"", "", 200},
        {"range behind the end", "bytes=99-", "", "", 416},
        {"known", "", "", tag, 304},
        {"known among others", "", "", "\"a\", W/" + tag, 304},
        {"any", "", "", "*", 304},
        {"another known", "", "", "\"a\"", 200},
        {"known, and a range", "bytes=2-3", "", tag, 304},
    };
    for (const auto& [name, range, ifRange, ifNoneMatch, status] : cases) {
        HttpRequest request;
        request.range = range;
        request.ifRange = ifRange;
        request.ifNoneMatch = ifNoneMatch;
        EXPECT_EQ(fileReply(request, file, "audio/mpeg").status, status) << name;
    }
}

TEST_F(FileReply, TagChangesWithTheFile)
{
    write("0123456789");
    const auto before = opened()->entityTag();
    EXPECT_EQ(before, opened()->entityTag());
    write("0123456789x");
    EXPECT_NE(before, opened()->entityTag());
}

TEST_F(FileReply, OpensNothingButFiles)
{
    EXPECT_FALSE(opened());
    EXPECT_FALSE(OpenFile::open(QFile::encodeName(folder_.path())));
    EXPECT_FALSE(OpenFile::open("/dev/null"));
}

} // namespace
} // namespace zib
