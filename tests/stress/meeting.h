/// @file
/// A place where threads and processes wait for each other, so that they begin something at the same moment.

#ifndef CCL_TESTS_STRESS_MEETING_H
#define CCL_TESTS_STRESS_MEETING_H

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <ctime>

namespace stress {

/// Holds back whoever comes until all have come, any number of times. Processes share it by the memory it lies in.
class meeting {
public:
  explicit meeting(int participants) : m_participants(participants) {}

  /// Waits for the others. False if one of them did not come: it has ended, or hangs.
  bool wait() {
    int const turn = m_turn;
    if (++m_arrived == m_participants) {
      m_arrived = 0;
      ++m_turn;
      ::syscall(SYS_futex, &m_turn, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
      return true;
    }
    timespec const patience = {120, 0};
    while (m_turn == turn) {
      if (::syscall(SYS_futex, &m_turn, FUTEX_WAIT, turn, &patience, nullptr, 0) == -1 && errno == ETIMEDOUT) {
        return false;
      }
    }
    return true;
  }

private:
  static_assert(std::atomic<int>::is_always_lock_free && sizeof(std::atomic<int>) == sizeof(int));

  int m_participants;
  std::atomic<int> m_arrived{0};
  std::atomic<int> m_turn{0};
};

} // namespace stress

#endif
