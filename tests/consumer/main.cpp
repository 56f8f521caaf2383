#include <mirel7/base.h>
#include <mirel7/types.h>
#include <mirelfrw7/core/signal.h>

#include <cstdio>

struct Receiver : tarnkit2::subscriber_base_t {
    void Take(int value) { sum += value; }
    int sum = 0;
};

int main() {
    tarnkit2::signal_t<int> signal;
    Receiver receiver;
    signal.connect(&receiver, &Receiver::Take);
    signal(40);
    signal(2);
    mirel7::rectangle<int> const r{10, 10, 0, 0};
    bool const ok = receiver.sum == 42 && r.Normalized().Width() == 10;
    std::puts(ok ? "consumer ok" : "consumer wrong");
    return ok ? 0 : 1;
}
