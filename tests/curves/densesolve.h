#pragma once

// The reference models of the tests solve their small systems here, apart
// from the code under test.

#include <cmath>
#include <utility>
#include <vector>

// Solves a small dense system by Gaussian elimination with pivoting.
inline std::vector<double> solve(std::vector<std::vector<double>> a, std::vector<double> b)
{
    const std::size_t n = b.size();
    for (std::size_t c = 0; c < n; ++c) {
        std::size_t pivot = c;
        for (std::size_t r = c + 1; r < n; ++r)
            if (std::abs(a[r][c]) > std::abs(a[pivot][c]))
                pivot = r;
        std::swap(a[c], a[pivot]);
        std::swap(b[c], b[pivot]);
        for (std::size_t r = c + 1; r < n; ++r) {
            const double f = a[r][c] / a[c][c];
            for (std::size_t k = c; k < n; ++k)
                a[r][k] -= f * a[c][k];
            b[r] -= f * b[c];
        }
    }
    std::vector<double> x(n);
    for (std::size_t r = n; r-- > 0;) {
        double s = b[r];
        for (std::size_t k = r + 1; k < n; ++k)
            s -= a[r][k] * x[k];
        x[r] = s / a[r][r];
    }
    return x;
}
