#pragma once

namespace velk::test {

// What this program gives back to operator delete is written over at once: whoever uses it all the same finds places
// that nobody has, and does not get away with it. While one of these lives it stays as it was, for who looks whether a
// secret is left in it.
class GivenBackAsItWas {
public:
    GivenBackAsItWas();
    GivenBackAsItWas(const GivenBackAsItWas&) = delete;
    GivenBackAsItWas& operator=(const GivenBackAsItWas&) = delete;
    ~GivenBackAsItWas();
};

} // namespace velk::test
