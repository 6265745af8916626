#include <Tolvanite/Platform/RandomDevice.h>

#include <csignal>
#include <cstdint>
#include <cstring>
#include <deque>
#include <span>
#include <string>
#include <utility>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <Tolvanite/Random/ConstantNonRandom.h>
#include <Tolvanite/Random/DevRandom.h>
#include <Tolvanite/Random/Lfsr176.h>
#include <Tolvanite/Random/Lfsr258.h>
#include <Tolvanite/Random/MersenneTwister.h>
#include <Tolvanite/Random/Xoroshiro.h>

using namespace tolvanite;

namespace {

const auto aborts = testing::KilledBySignal(SIGABRT);

// Stands in for the system's device as long as it lives. Gives words as they are written down, and
// notes its calls: "o" for an open, "r8" for a read of 8 bytes, "c" for a close.
class ScriptedDevice : public RandomDevice {
 public:
  explicit ScriptedDevice(std::deque<std::uint64_t> words) : words_(std::move(words)) {}
  ~ScriptedDevice() override { setRandomDevice(before_); }

  std::int32_t open() override {
    calls += "o";
    return opens ? 77 : -1;
  }
  bool read(std::int32_t descriptor, std::span<std::byte> bytes) override {
    EXPECT_EQ(descriptor, 77);
    calls += "r" + std::to_string(bytes.size());
    for (; bytes.size() >= 8 && !words_.empty(); bytes = bytes.subspan(8), words_.pop_front()) {
      std::memcpy(bytes.data(), &words_.front(), 8);
    }
    return bytes.empty();
  }
  void close(std::int32_t descriptor) override {
    EXPECT_EQ(descriptor, 77);
    calls += "c";
  }

  std::string calls;
  bool opens = true;

 private:
  std::deque<std::uint64_t> words_;
  RandomDevice* before_ = setRandomDevice(this);
};

TEST(RandomDeviceTest, seedsOfTheGenerators) {
  {
    ScriptedDevice device({0, 1, 8, 9, 11, 12, 16, 17, 22, 23, 99});
    EXPECT_EQ(Lfsr258(), Lfsr258(1, 9, 12, 17, 23));
    EXPECT_EQ(device.calls, "or8r8r8r8r8r8r8r8r8r8c");
  }
  {
    ScriptedDevice device({0, 1, 5, 6, 0, 8, 9, 99});
    EXPECT_EQ(Lfsr176(), Lfsr176(1, 6, 9));
    EXPECT_EQ(device.calls, "or8r8r8r8r8r8r8c");
  }
  ScriptedDevice device({0, 4, 5, 6, 7});
  EXPECT_EQ(Xoroshiro(), Xoroshiro(0, 4));
  EXPECT_EQ(MersenneTwister(), MersenneTwister(5));
  EXPECT_EQ(ConstantNonRandom().value, 6U);
  EXPECT_EQ(std::exchange(device.calls, ""), "or16cor8cor8c");
  EXPECT_EQ(ConstantNonRandom(9).value, 9U);
  EXPECT_EQ(device.calls, "or8c") << "a given value reads the device all the same";
}

TEST(RandomDeviceTest, copiesShareTheDescriptor) {
  ScriptedDevice device({1, 2, 3, 4, 5});
  {
    DevRandom generator;
    EXPECT_EQ(generator.fileDescriptor().fd, 77);
    DevRandom copy = generator;
    EXPECT_EQ(generator.random64(), 1U);
    EXPECT_EQ(copy.random64(), 2U);
  }
  EXPECT_EQ(std::exchange(device.calls, ""), "or8r8c");
  std::uint64_t words[2];
  DevRandom::randomizeOnce(words, 16);
  EXPECT_EQ(words[1], 4U);
  EXPECT_EQ(DevRandom::random64Once(), 5U);
  EXPECT_EQ(device.calls, "or16cor8c");
}

TEST(RandomDeviceTest, failuresAreFatalWithoutAMessage) {
  const std::string fatal = "Fatal error: file .*Random.cpp";
  ScriptedDevice device({1});
  EXPECT_EXIT(Xoroshiro(), aborts, fatal) << "a short read";
  EXPECT_EXIT(Lfsr258(), aborts, fatal);
  EXPECT_EXIT(DevRandom().random32(), aborts, fatal);
  EXPECT_EXIT(DevRandom::randomizeOnce(nullptr, -1), aborts, fatal);
  device.opens = false;
  EXPECT_EXIT(DevRandom(), aborts, fatal) << "a failed open";
  EXPECT_EXIT(ConstantNonRandom(3), aborts, fatal);
}

TEST(RandomDeviceTest, theSystemsOwn) {
  std::int32_t descriptor = -1;
  {
    DevRandom generator;
    descriptor = generator.fileDescriptor().fd;
    EXPECT_EQ(fcntl(descriptor, F_GETFD), FD_CLOEXEC);
    EXPECT_NE(generator.random64(), generator.random64());
    EXPECT_EXIT((close(descriptor), generator.random64()), aborts, "Fatal error: file");
  }
  EXPECT_EQ(fcntl(descriptor, F_GETFD), -1) << "closed";
  EXPECT_NE(Xoroshiro(), Xoroshiro());
}

}  // namespace
