// The influence kernels: the separable sums against the plain double loop
// over source and target elements, and the facts of the kernels themselves.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include "stressmodel/influence_fft.h"
#include "stressmodel/kernels.h"
#include "stressmodel/modeldat.h"
#include "tests/stressmodel/plain_kernels.h"

namespace vorn {
namespace {

// A field with its own storage, indexed from 1.
struct OwnedField {
    std::vector<double> data;
    KernelField field;

    OwnedField(int countX, int countY, double width, double x, double y)
        : data(static_cast<std::size_t>(countX) * countY, 0.0), field{data.data(), countY, countX, countY, width, x, y}
    {
    }
    double& at(int k, int l) { return field.at(k, l); }
    double largest() const
    {
        double m = 0;
        for (double v : data) m = std::max(m, std::fabs(v));
        return m;
    }
};

void fillRandom(OwnedField& f, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> value(-0.5, 2.0);
    for (double& v : f.data) v = value(random);
}

struct Layout {
    const char* name;
    int sx, sy;
    double sw, sox, soy;
    int tx, ty;
    double tw, tox, toy;
    double distance;
};

const KernelRock kRock{3.0e6f, 170.0f};

const std::vector<Layout> kLayouts = {
    {"same lattice, window cut by all edges", 20, 30, 60, 0, 0, 20, 30, 60, 0, 0, -100},
    {"coarse source on fine target", 6, 4, 300, 0, 0, 60, 40, 30, 0, 0, 480},
    {"shifted origins, odd ratio", 13, 17, 45, -200, 310, 25, 21, 70, 150, -40, -250},
    {"target partly outside the source", 10, 10, 60, 0, 0, 15, 12, 60, 400, -300, 60},
    {"deep seam, window over everything", 12, 9, 60, 0, 0, 14, 11, 60, 30, 10, -14400},
};

using Sum = std::function<void(const KernelField&, const KernelField&, double, const KernelRock&)>;

void expectAgreement(const Sum& plainSum, const Sum& fastSum, unsigned seed)
{
    for (const Layout& c : kLayouts) {
        SCOPED_TRACE(c.name);
        OwnedField source(c.sx, c.sy, c.sw, c.sox, c.soy);
        fillRandom(source, seed++);
        OwnedField plain(c.tx, c.ty, c.tw, c.tox, c.toy), fast(c.tx, c.ty, c.tw, c.tox, c.toy);
        plainSum(source.field, plain.field, c.distance, kRock);
        fastSum(source.field, fast.field, c.distance, kRock);
        ASSERT_GT(plain.largest(), 0);
        const double bound = 1e-12 * plain.largest();
        for (std::size_t n = 0; n < plain.data.size(); ++n) ASSERT_NEAR(fast.data[n], plain.data[n], bound) << n;
    }
}

TEST(InfluenceSums, SeparableSumsAgreeWithThePlainLoop)
{
    expectAgreement(plainPropagate, [](const KernelField& s, const KernelField& t, double z, const KernelRock& r) {
        EXPECT_TRUE(propagateStress(s, t, z, r));
    }, 1);
    expectAgreement(plainRemote, [](const KernelField& s, const KernelField& t, double z, const KernelRock& r) {
        remoteDisplacement(s, t, z, r);
    }, 10);
}

TEST(InfluenceSums, ConvolutionAgreesWithThePlainLoopOnFullWindows)
{
    const std::vector<Layout> full = {
        {"same lattice", 40, 30, 60, 0, 0, 40, 30, 60, 0, 0, -14400},
        {"coarse source, ratio 2, shifted", 20, 15, 120, 35, -20, 40, 30, 60, 10, 5, -15360},
        {"coarse source, ratio 10, target larger", 7, 5, 600, 0, 0, 70, 60, 60, -300, -120, 14400},
        {"fine source beside a smaller target", 50, 37, 30, 0, 0, 23, 41, 30, 200, -90, -9000},
    };
    std::mt19937 seeds(3);
    for (const Layout& c : full) {
        SCOPED_TRACE(c.name);
        OwnedField source(c.sx, c.sy, c.sw, c.sox, c.soy);
        fillRandom(source, seeds());
        OwnedField plain(c.tx, c.ty, c.tw, c.tox, c.toy), fast(c.tx, c.ty, c.tw, c.tox, c.toy);
        ASSERT_TRUE(fullWindowConvolution(source.field, plain.field, c.distance));
        plainPropagate(source.field, plain.field, c.distance, kRock);
        ASSERT_TRUE(propagateStressByConvolution(source.field, fast.field, c.distance, kRock));
        const double bound = 1e-12 * plain.largest();
        for (std::size_t n = 0; n < plain.data.size(); ++n) ASSERT_NEAR(fast.data[n], plain.data[n], bound) << n;
    }
    // Cut windows or a width that is no whole multiple keep the separable sums.
    for (const Layout& c : {kLayouts[0], kLayouts[2], kLayouts[3]}) {
        OwnedField source(c.sx, c.sy, c.sw, c.sox, c.soy), target(c.tx, c.ty, c.tw, c.tox, c.toy);
        EXPECT_FALSE(fullWindowConvolution(source.field, target.field, c.distance)) << c.name;
    }
    // A stop before the first row leaves the target as it was.
    OwnedField source(10, 10, 60, 0, 0), target(10, 10, 60, 0, 0);
    fillRandom(source, 5);
    EXPECT_FALSE(propagateStressByConvolution(source.field, target.field, -14400, kRock, [](int, int) { return false; }));
    EXPECT_EQ(target.largest(), 0.0);
}

// One source element of value 1 at the origin's first element, seen by a
// 1 x 1 target whose centre is `offset` away in x.
double singleElementStress(double offset, double distance, const KernelRock& rock = kRock)
{
    OwnedField source(1, 1, 10, 0, 0);
    source.at(1, 1) = 1;
    OwnedField target(1, 1, 10, offset, 0);
    propagateStress(source.field, target.field, distance, rock);
    return target.at(1, 1);
}

TEST(PropagateStress, KernelFacts)
{
    const double z = -200;
    const double A = kRock.modulus / (static_cast<double>(kRock.lamination) * kEightPi * z * z);
    const double peak = singleElementStress(0, z);
    EXPECT_NEAR(peak, -A * 100, 1e-12 * A * 100);  // opposite sign directly above a closure
    const double ring = std::sqrt(static_cast<double>(kRock.lamination * 4.0f) * 200);
    EXPECT_NEAR(singleElementStress(ring, z), 0, 1e-12 * -peak);
    EXPECT_GT(singleElementStress(1.5 * ring, z), 0);
    EXPECT_NEAR(singleElementStress(0, z / 2) / peak, 4, 1e-12);
}

TEST(PropagateStress, WindowIsInclusiveAndCutOff)
{
    // width 1, distance 0.5: half-width 5 elements, so from source element 1
    // the targets 1..6 take part and 7 does not.
    const KernelRock rock{1000.0f, 10.0f};
    OwnedField source(1, 1, 1, 0, 0);
    source.at(1, 1) = 1;
    OwnedField target(10, 1, 1, 0, 0);
    propagateStress(source.field, target.field, 0.5, rock);
    EXPECT_NE(target.at(6, 1), 0);
    EXPECT_EQ(target.at(7, 1), 0);

    OwnedField far(5, 5, 1, 100, 100);
    propagateStress(source.field, far.field, 0.5, rock);
    EXPECT_EQ(far.largest(), 0);
}

TEST(PropagateStress, StoppingKeepsTheRowsDone)
{
    OwnedField source(6, 5, 60, 0, 0);
    fillRandom(source, 99);
    OwnedField stopped(6, 5, 60, 0, 0);
    int calls = 0;
    EXPECT_FALSE(propagateStress(source.field, stopped.field, -300, kRock, [&calls](int row, int rows) {
        ++calls;
        EXPECT_EQ(rows, 6);
        return row < 3;
    }));
    EXPECT_EQ(calls, 3);
    OwnedField firstRows(6, 5, 60, 0, 0);
    KernelField twoRows = source.field;
    twoRows.countX = 2;
    propagateStress(twoRows, firstRows.field, -300, kRock);
    EXPECT_EQ(stopped.data, firstRows.data);
}

TEST(PropagateStress, MirrorNegatesTheSourceForTheCallOnly)
{
    CModelDat model;
    model.modulus = kRock.modulus;
    model.lamination = kRock.lamination;
    DoubleMatrix source, direct, mirrored;
    dmatrix(source, 1, 4, 1, 3);
    dmatrix(direct, 1, 5, 1, 5);
    dmatrix(mirrored, 1, 5, 1, 5);
    for (int x = 1; x <= 4; ++x)
        for (int y = 1; y <= 3; ++y) source(x, y) = x + 0.1 * y;
    model.PropagateStress(source, 4, 3, 60, 0, 0, direct, 5, 5, 50, 10, -20, -300, 0);
    model.PropagateStress(source, 4, 3, 60, 0, 0, mirrored, 5, 5, 50, 10, -20, -300, 1);
    for (int x = 1; x <= 5; ++x)
        for (int y = 1; y <= 5; ++y) EXPECT_EQ(mirrored(x, y), -direct(x, y));
    EXPECT_EQ(source(4, 3), 4.3);
}

}  // namespace
}  // namespace vorn
