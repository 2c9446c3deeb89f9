// Work by several threads, in order.
#include "framing/ordered_workers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <climits>
#include <set>
#include <string>

namespace fdmorph::framing {
namespace {

using Workers = OrderedWorkers<int, std::string>;
using Steps = OrderedSteps<int, std::string>;

constexpr std::size_t kMostThreads = 5;

// The numbers from 1 to a last one, read, written as text and collected.
struct Counting {
  int last = 0;
  int stopAt = INT_MAX;       // take says no
  int next = 0;               // read
  std::string taken;          // texts, with a blank after each
  std::atomic<int> open = 0;  // pieces that are read and not taken
  int mostOpen = 0;
  std::atomic<bool> isWrong = false;

  Steps steps(std::size_t threads) {
    return {[this](int& input) {
              if (next == last) return false;
              input = ++next;
              mostOpen = std::max(mostOpen, ++open);
              return true;
            },
            [this, threads](std::size_t thread, int& input, std::string& output) {
              if (thread >= threads) isWrong = true;
              // Later pieces are done sooner.
              std::this_thread::sleep_for(std::chrono::microseconds(70 - input % 7 * 10));
              output = std::to_string(input);
            },
            [this](int& input, std::string& output) {
              --open;
              if (input >= stopAt) return false;
              taken += output + " ";
              return true;
            }};
  }
};

std::string numbersUpTo(int last) {
  std::string text;
  for (int i = 1; i <= last; ++i) text += std::to_string(i) + " ";
  return text;
}

TEST(OrderedWorkersTest, PiecesAreTakenInTheOrderOfReading) {
  for (std::size_t threads = 0; threads <= kMostThreads; ++threads) {
    Counting run;
    run.last = 500;
    Workers::run(threads, run.steps(std::max<std::size_t>(threads, 1)));
    EXPECT_EQ(run.taken, numbersUpTo(500)) << threads;
    EXPECT_FALSE(run.isWrong);
  }
}

TEST(OrderedWorkersTest, NoPiecesAreNoWork) {
  for (std::size_t threads = 1; threads <= kMostThreads; ++threads) {
    Counting run;
    Workers::run(threads, run.steps(threads));
    EXPECT_EQ(run.taken, "");
  }
}

TEST(OrderedWorkersTest, NothingIsTakenAfterAStop) {
  for (std::size_t threads = 1; threads <= kMostThreads; ++threads) {
    Counting run;
    run.last = 1'000'000;
    run.stopAt = 100;
    Workers::run(threads, run.steps(threads));
    EXPECT_EQ(run.taken, numbersUpTo(99));
    EXPECT_LT(run.next, 1000) << "reading goes on";
  }
}

TEST(OrderedWorkersTest, NumberOfPiecesIsBounded) {
  for (std::size_t threads = 1; threads <= kMostThreads; ++threads) {
    Counting run;
    run.last = 500;
    Workers::run(threads, run.steps(threads));
    EXPECT_LE(run.mostOpen, static_cast<int>(threads == 1 ? 1 : threads + 2));
  }
}

TEST(OrderedWorkersTest, OneThreadIsTheCallingOne) {
  std::set<std::thread::id> threads;
  int next = 0;
  auto const note = [&threads] { threads.insert(std::this_thread::get_id()); };
  Workers::run(1, {[&](int&) { return note(), ++next < 10; },
                   [&](std::size_t, int&, std::string&) { note(); },
                   [&](int&, std::string&) { return note(), true; }});
  EXPECT_EQ(threads, std::set{std::this_thread::get_id()});
}

// A text that is longer than the next one must not be made again.
TEST(OrderedWorkersTest, OutputsKeepTheirMemory) {
  std::set<char const*> places;
  int next = 0;
  Workers::run(1, {[&](int&) { return ++next < 10; },
                   [&](std::size_t, int&, std::string& output) { output.assign(1000, 'x'); },
                   [&](int&, std::string& output) { return places.insert(output.data()), true; }});
  EXPECT_EQ(places.size(), 1U);
}

}  // namespace
}  // namespace fdmorph::framing
