// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts: a setting that is lost, changes its type, wins over what is stronger, or is told of twice.
#include "platform/desktop/SettingsFile.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

namespace zib {
namespace {

const QString key = QStringLiteral("Key");

class FakeSide {
  public:
    FakeUserDefaults port;
};

class RealSide {
  private:
    QTemporaryDir folder_;

  public:
    SettingsFile port{folder_.filePath(QStringLiteral("settings.json"))};
};

template <typename Side>
class UserDefaultsContract : public testing::Test {
  protected:
    UserDefaultsContract()
    {
        QObject::connect(&port, &UserDefaults::changed, &port, [this](const QString& name) { told += name; });
    }
    Side side;
    UserDefaults& port = side.port;
    QStringList told;
};
using Sides = testing::Types<FakeSide, RealSide>;
TYPED_TEST_SUITE(UserDefaultsContract, Sides);

TYPED_TEST(UserDefaultsContract, TheStoredValueWinsOverTheRegisteredOne)
{
    UserDefaults& defaults = this->port;
    EXPECT_FALSE(defaults.value(key).isValid());
    EXPECT_FALSE(defaults.boolean(key));
    defaults.registerDefaults({{key, 1}});
    EXPECT_EQ(defaults.integer(key), 1);
    EXPECT_EQ(defaults.storedKeys(), QStringList());
    defaults.setValue(key, 2);
    EXPECT_EQ(defaults.integer(key), 2);
    EXPECT_EQ(defaults.storedKeys(), QStringList{key});
    defaults.registerDefaults({{key, 3}, {QStringLiteral("Other"), true}});
    EXPECT_EQ(defaults.integer(key), 2);
    EXPECT_TRUE(defaults.boolean(QStringLiteral("Other")));
    defaults.remove(key);
    EXPECT_EQ(defaults.integer(key), 3);
    EXPECT_EQ(defaults.storedKeys(), QStringList());
}

TYPED_TEST(UserDefaultsContract, ReadsByType)
{
    UserDefaults& defaults = this->port;
    defaults.setValue(key, 0.25);
    EXPECT_EQ(defaults.real(key), 0.25);
    defaults.setValue(key, QStringLiteral("~/Music"));
    EXPECT_EQ(defaults.string(key), QStringLiteral("~/Music"));
    defaults.setValue(key, true);
    EXPECT_TRUE(defaults.boolean(key));
    EXPECT_EQ(defaults.integer(key), 1);
}

TYPED_TEST(UserDefaultsContract, TellsWhenTheValueThatShowsChanges)
{
    UserDefaults& defaults = this->port;
    defaults.registerDefaults({{key, 1}});
    EXPECT_EQ(this->told.size(), 1);
    defaults.setValue(key, 1); // shows the same
    EXPECT_EQ(this->told.size(), 1);
    defaults.registerDefaults({{key, 5}}); // hidden by the set one
    EXPECT_EQ(this->told.size(), 1);
    defaults.setValue(key, 2);
    EXPECT_EQ(this->told.size(), 2);
    defaults.remove(key);
    EXPECT_EQ(this->told.size(), 3);
    defaults.remove(key);
    EXPECT_EQ(this->told.size(), 3);
}

TYPED_TEST(UserDefaultsContract, TheNewValueShowsWhenItIsTold)
{
    int seen = 0;
    QObject::connect(&this->port, &UserDefaults::changed, &this->port,
                     [&](const QString& name) { seen = this->port.integer(name); });
    this->port.setValue(key, 7);
    EXPECT_EQ(seen, 7);
}

TYPED_TEST(UserDefaultsContract, AnyThreadMayRead)
{
    std::atomic<bool> done = false;
    std::thread reader([&] {
        while (!done) {
            const int value = this->port.integer(key);
            EXPECT_TRUE(value >= 0 && value <= 1000);
        }
    });
    for (int i = 0; i <= 1000; ++i)
        this->port.setValue(key, i);
    done = true;
    reader.join();
}

} // namespace
} // namespace zib
