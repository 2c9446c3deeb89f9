// Work on pieces of a file by several threads, with results in the order of the file.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "text/early_end.h"

namespace fdmorph::framing {

/// The steps of work on one piece. None of them throws; they are called once a piece, so
/// a piece should be large. Input and Output are used again, so they keep their memory.
template <typename Input, typename Output>
struct OrderedSteps {
  /// Replaces the content of the input by the next piece. False at the end. Never called
  /// by two threads at a time, nor after it has returned false.
  std::function<bool(Input&)> read;

  /// Makes the output, which has that of an earlier piece, from the input. Threads call it
  /// at the same time, each with a number of its own, from 0, below the number of threads.
  std::function<void(std::size_t thread, Input&, Output&)> work;

  /// Takes a piece. Called in the order of read, never by two threads at a time. False
  /// ends the work: no further piece is taken or, once this is noticed, read.
  std::function<bool(Input&, Output&)> take;
};

/// Threads that all do the same: read a piece, work on it, and leave it to whoever takes
/// the pieces at the moment, or take those that are due.
template <typename Input, typename Output>
class OrderedWorkers {
 public:
  using Steps = OrderedSteps<Input, Output>;

  /// Does all the work, in the calling thread and `threads` - 1 others. It has at most
  /// `threads` + kSpare pieces at a time. If the system gives fewer threads, these do.
  static void run(std::size_t threads, Steps const& steps) {
    if (threads <= 1) return runAlone(steps);
    OrderedWorkers workers(threads, steps);
    std::vector<std::thread> others;
    {
      // Signals go to the calling thread, which has the stack for them.
      SignalsBlocked blocked;
      for (std::size_t i = 1; i < threads; ++i) {
        try {
          others.emplace_back([&workers, i] { workers.work(i); });
        } catch (std::system_error const&) {
          break;
        }
      }
    }
    workers.work(0);
    for (std::thread& each : others) each.join();
  }

 private:
  /// Pieces that are done before it is their turn keep nobody waiting.
  static constexpr std::size_t kSpare = 2;

  enum class State : std::uint8_t { free, busy, done };

  struct Piece {
    Input input{};
    Output output{};
    State state = State::free;
    std::uint64_t turn = 0;
  };

  OrderedWorkers(std::size_t threads, Steps const& steps)
      : m_steps(steps), m_pieces(threads + kSpare) {}

  static void runAlone(Steps const& steps) {
    Input input{};
    Output output{};
    while (steps.read(input)) {
      steps.work(0, input, output);
      if (!steps.take(input, output)) return;
    }
  }

  void work(std::size_t thread) {
    while (Piece* piece = nextPiece()) {
      m_steps.work(thread, piece->input, piece->output);
      deliver(*piece);
    }
  }

  // Waits with the right to read: a thread that may not read has nothing else to do.
  Piece* nextPiece() {
    std::lock_guard<std::mutex> reading(m_reading);
    Piece* const piece = waitForFree();
    if (piece == nullptr) return nullptr;
    bool const isRead = m_steps.read(piece->input);
    std::lock_guard<std::mutex> lock(m_mutex);
    piece->state = isRead ? State::busy : State::free;
    if (isRead) piece->turn = m_readTurn++;
    m_isEnd = m_isEnd || !isRead;
    return isRead ? piece : nullptr;
  }

  Piece* waitForFree() {
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_isEnd) {
      for (Piece& each : m_pieces) {
        if (each.state == State::free) return &each;
      }
      m_freed.wait(lock);
    }
    return nullptr;
  }

  void deliver(Piece& piece) {
    std::unique_lock<std::mutex> lock(m_mutex);
    piece.state = State::done;
    if (m_isTaking) return;
    m_isTaking = true;
    while (Piece* const due = pieceOfTurn()) {
      lock.unlock();
      bool const goesOn = !m_isStopped && m_steps.take(due->input, due->output);
      lock.lock();
      m_isStopped = !goesOn;
      m_isEnd = m_isEnd || m_isStopped;
      due->state = State::free;
      ++m_takeTurn;
      m_freed.notify_one();
    }
    m_isTaking = false;
  }

  Piece* pieceOfTurn() {
    for (Piece& each : m_pieces) {
      if (each.state == State::done && each.turn == m_takeTurn) return &each;
    }
    return nullptr;
  }

  Steps const& m_steps;
  std::vector<Piece> m_pieces;
  std::mutex m_reading;             // held to read
  std::mutex m_mutex;               // held to look at what follows
  std::condition_variable m_freed;  // a piece is free, or nothing is read any more
  std::uint64_t m_readTurn = 0;
  std::uint64_t m_takeTurn = 0;
  bool m_isEnd = false;      // nothing is read any more
  bool m_isTaking = false;   // a thread takes pieces
  bool m_isStopped = false;  // nothing is taken any more; that thread's own
};

}  // namespace fdmorph::framing
