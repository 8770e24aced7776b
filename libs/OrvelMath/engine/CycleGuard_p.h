#pragma once

/// @file
/// Notices that a walk runs in a circle.

#include <cstdint>
#include <functional>

namespace engine {

/// Notices that a sequence, each member of which follows from the one before it, repeats itself
/// (R. P. Brent, 1980).
///
/// It remembers one state, renewed after 1, 2, 4, 8, ... steps. Sooner or later that state lies on
/// the circle and the walk comes back to it. The answer comes within about three times as many
/// steps as lead into the circle and once around it. Memory: one state.
///
/// @tparam Same tells whether two states are one; for doubles think of NaN, which doesn't equal
///              itself.
template <typename State, typename Same = std::equal_to<State>>
class CycleGuard
{
public:
    /// Takes note of the next state.
    /// @return whether it is the remembered one: the sequence repeats itself from here on.
    bool comesAgain(State const &state)
    {
        if (m_steps != 0 && Same()(state, m_remembered)) {
            return true;
        }
        if (++m_steps == m_nextMark) {
            m_remembered = state;
            m_nextMark *= 2;
        }
        return false;
    }

private:
    State m_remembered{};
    std::uint64_t m_steps = 0;
    std::uint64_t m_nextMark = 1;
};

} // namespace engine
