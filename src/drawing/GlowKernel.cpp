#include "drawing/GlowKernel.h"

#include <algorithm>
#include <cmath>

namespace haloric {

namespace {

double cutOf(double blurRadius) { return blurRadius > 0 ? std::min(blurRadius, GlowKernel::kMaxBlurRadius) : 0; }

} // namespace

int GlowKernel::marginOf(double blurRadius) { return static_cast<int>(cutOf(blurRadius)); }

GlowKernel::GlowKernel(double blurRadius)
{
    std::vector<double> shares{1};
    double sum = 1;
    for (int distance = 1; distance <= marginOf(blurRadius); ++distance) {
        const double deviations = distance / (cutOf(blurRadius) / 2);
        shares.push_back(std::exp(-deviations * deviations / 2));
        sum += 2 * shares.back();
    }
    for (const double share : shares)
        m_taps.push_back(static_cast<float>(share / sum));

    double below = 0;
    m_sums.push_back(0);
    for (int distance = -margin(); distance <= margin(); ++distance) {
        below += shares[static_cast<std::size_t>(std::abs(distance))];
        m_sums.push_back(static_cast<float>(below / sum));
    }
}

} // namespace haloric
