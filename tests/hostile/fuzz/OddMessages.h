#pragma once

#include "tests/hostile/fuzz/Random.h"

#include <windows.h>

#include <string>
#include <vector>

namespace kiv::test
{

struct OddMessage
{
    UINT Number = 0;
    WPARAM First = 0;
    LPARAM Second = 0;
    bool Wide = false; // sent as Unicode programs do

    std::string Describe(HWND target) const;
    void SendTo(HWND target) const;
};

// Messages that a program may send to any window of another, and what they point to: valid memory of the kind
// that the message is declared with, or nothing.
class OddMessages
{
public:
    OddMessages();
    OddMessages(const OddMessages&) = delete;
    OddMessages& operator=(const OddMessages&) = delete;
    ~OddMessages();

    // One for a window. root: the control's own window, or the form that the window is in.
    // Left out are those that tell of a window's end, those that keep the user busy in it, and those that a
    // plain window of the system's does not survive either.
    OddMessage Any(Random& random, HWND target, HWND root);

private:
    OddMessage Made(Random& random, HWND target, HWND root);
    UINT Number(Random& random, HWND target);
    OddMessage FromChild(Random& random, HWND root);
    void Fill(Random& random, OddMessage& message, HWND target, HWND root);
    void PointAtText(Random& random, OddMessage& message);
    void PointAtStructure(Random& random, OddMessage& message, HWND target, HWND root);
    template<class Structure>
    Structure& Put(OddMessage& message);

    std::vector<std::byte> memory_;
    HDC dc_;
};

} // namespace kiv::test
