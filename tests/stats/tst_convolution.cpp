#include "stats/convolution.h"

#include "support/directsums.h"
#include "support/near.h"

#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

namespace {

std::vector<double> directly(const std::vector<double>& a, const std::vector<double>& h)
{
    std::vector<double> out(a.size() + h.size() - 1);
    for (size_t i = 0; i < a.size(); ++i) {
        for (size_t j = 0; j < h.size(); ++j)
            out[i + j] += h[j] * a[i];
    }
    return out;
}

}

class TestConvolution : public QObject {
    Q_OBJECT
private slots:
    void againstDirectSums()
    {
        for (const int m : {1, 2, 64, 65, 129}) {
            for (const int n : {1, 2, 7, 8, 9, 63, 64, 65, 66, 71, 72, 73, 200, 1000}) {
                std::vector<double> a = direct::noise(n), h = direct::noise(m);
                const std::vector<double> want = directly(a, h);
                const std::unique_ptr<double[]> got(conv(a.data(), n, h.data(), m));
                QVERIFY(std::equal(want.begin(), want.end(), got.get())); // to the last bit: the same order
                for (const int factor : {1, 10, 100}) {
                    const std::vector<double> thin = convDecimated(a.data(), n, h.data(), m, factor);
                    QCOMPARE(thin.size(), size_t(n / factor));
                    for (size_t i = 0; i < thin.size(); ++i)
                        NEAR(thin[i], want[i * size_t(factor)], 1e-13, 1e-13);
                }
            }
        }
    }

    void nothingToRead()
    {
        const int least = std::numeric_limits<int>::min();
        const int rows[][3] = {
            {0, 65, 64}, {10, 0, 9}, {0, 0, 0}, {-5, 65, 59}, {-100, 65, 0}, {least, 0, 0}, {5, least, 0}};
        for (const auto& [n, m, length] : rows) {
            const std::unique_ptr<double[]> out(conv(nullptr, n, nullptr, m));
            QVERIFY(std::all_of(out.get(), out.get() + length, [](double value) { return value == 0.0; }));
            QCOMPARE(convDecimated(nullptr, n, nullptr, m, 1), std::vector<double>(size_t(std::max(0, n))));
        }
    }
};

QTEST_APPLESS_MAIN(TestConvolution)
#include "tst_convolution.moc"
