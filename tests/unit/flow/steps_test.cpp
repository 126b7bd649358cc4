#include "base/flow/steps.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "base/handles/held.h"

namespace base {
namespace {

using testing::ElementsAre;

TEST(IndependentSteps, AllRunAndTheFirstFailureIsToldAtTheEnd) {
  std::vector<std::string> ran;
  IndependentSteps steps;
  steps.Run([&] { ran.push_back("one"); });
  steps.Run([&] {
    ran.push_back("two");
    throw std::runtime_error("of two");
  });
  EXPECT_TRUE(steps.HasFailed());
  steps.Run([&] {
    ran.push_back("three");
    throw std::logic_error("of three");
  });
  steps.Run([&] { ran.push_back("four"); });
  EXPECT_THAT(ran, ElementsAre("one", "two", "three", "four"));
  try {
    steps.Finish();
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "of two");
  }
  EXPECT_NO_THROW(steps.Finish()) << "told once";
}

TEST(IndependentSteps, WithoutAFailureNothingIsThrown) {
  IndependentSteps steps;
  steps.Run([] {});
  EXPECT_FALSE(steps.HasFailed());
  EXPECT_NO_THROW(steps.Finish());
}

struct Machine : Holdable {
  explicit Machine(std::vector<std::string>& log) : log(log) {}
  ~Machine() { log.push_back("memory goes"); }
  void TakeDown() noexcept { log.push_back("taken down"); }
  std::vector<std::string>& log;
};

TEST(Held, WithoutAHoldTheMemoryGoesAtOnce) {
  std::vector<std::string> log;
  make_held<Machine>(log).reset();
  EXPECT_THAT(log, ElementsAre("taken down", "memory goes"));
}

TEST(Held, TheMemoryStaysUntilTheLastHoldIsGone) {
  std::vector<std::string> log;
  held_ptr<Machine> machine = make_held<Machine>(log);
  {
    const Hold outer(machine.get());
    {
      const Hold inner(machine.get());
      machine.reset();
      EXPECT_FALSE(machine);
    }
    EXPECT_THAT(log, ElementsAre("taken down"));
  }
  EXPECT_THAT(log, ElementsAre("taken down", "memory goes"));
}

TEST(Held, AHoldThatEndsFirstLeavesTheObjectToItsOwner) {
  std::vector<std::string> log;
  {
    const held_ptr<Machine> machine = make_held<Machine>(log);
    { const Hold hold(machine.get()); }
    { const Hold nothing(static_cast<Machine*>(nullptr)); }
    EXPECT_TRUE(log.empty());
  }
  EXPECT_THAT(log, ElementsAre("taken down", "memory goes"));
}

}  // namespace
}  // namespace base
