// The seam solver: boundaries, averaging, the converged plate against its
// discrete equation and the closed-form trough of a long strip.
#include <cmath>

#include "stressmodel/modeldat.h"
#include "tests/stressmodel/fixture.h"

namespace vorn::testing {
namespace {

// A seam of countX x countY mined elements that never close fully, under
// an overburden of 1000, with fixed edges unless a test says otherwise.
class PlateTest : public ScratchFolderTest {
protected:
    void build(int countX, int countY)
    {
        model.seamCount = 1;
        model.elementsX = countX;
        model.elementsY = countY;
        model.elementWidth = 1;
        model.modulus = 1.0e6f;
        model.poisson = 0.25f;
        model.layerThickness = 10;
        model.density = 1;
        model.seamZ[1] = -1000;
        model.seamThickness[1] = 1;
        model.overRelaxation = 1.5f;
        model.tolerance = 1e-14f;
        model.maxIterations = 100000;
        model.Initialize();
        ccubix(model.codes, 1, 1, 1, countX, 1, countY);
        for (int x = 1; x <= countX; ++x)
            for (int y = 1; y <= countY; ++y) model.codes(1, x, y) = '1';
        ASSERT_TRUE(log.open("plate.out"));
    }
    int solve()
    {
        return model.SolveSeam(model.convergence[1], model.codes[1], model.elementsX, model.elementsY, model.elementWidth,
                               model.seamThickness[1], model.verticalStress[1], model.overburdenStress[1],
                               model.surfaceStress[1], model.interseamStress[1], log);
    }
    // The right-hand side of the discrete equation: 2 / (L E) h^2 p.
    double loadTerm() const { return static_cast<float>(2 / (model.lamination * model.modulus)) * 1000.0; }

    CModelDat model;
    TextWriter log;
};

TEST_F(PlateTest, ConvergedFieldSatisfiesTheDiscreteEquation)
{
    build(20, 20);
    const int sweeps = solve();
    EXPECT_GT(sweeps, 1);
    DoubleMatrix& u = model.convergence[1];
    const double c = loadTerm();
    for (int x = 1; x <= 20; ++x)
        for (int y = 1; y <= 20; ++y)
            ASSERT_NEAR(u(x + 1, y) + u(x - 1, y) + u(x, y - 1) + u(x, y + 1) - 4 * u(x, y), -c, 1e-8 * c);
    EXPECT_GT(u(10, 10), u(2, 10));
    EXPECT_EQ(u(0, 5), 0);  // fixed edge
}

TEST_F(PlateTest, LongStripGivesTheQuadraticTrough)
{
    build(10, 20);
    model.boundaryNorth = 1;
    model.boundarySouth = 1;
    solve();
    const double c = loadTerm();
    const double peak = c / 2 * 5 * 6;
    for (int x = 1; x <= 10; ++x)
        for (int y = 1; y <= 20; ++y) ASSERT_NEAR(model.convergence(1, x, y), c / 2 * x * (11 - x), 1e-9 * peak);
}

TEST_F(PlateTest, NoIterationsRunsTheLawsOnceAndRunningOutIsAFailure)
{
    build(10, 10);
    model.maxIterations = 0;
    model.codes(1, 3, 3) = 'A';
    model.materialCount = 1;
    model.materialType[0] = 1;
    model.materialProperty[0][0] = 500;
    model.Initialize();
    model.convergence(1, 3, 3) = 0.25;
    EXPECT_EQ(solve(), 0);
    EXPECT_EQ(model.convergence(1, 3, 3), 0.25);
    EXPECT_EQ(model.verticalStress(1, 3, 3), 125);

    model.maxIterations = 3;
    EXPECT_EQ(solve(), -1);
    EXPECT_EQ(lastBox(), "Maximum Number of Iterations Reached - SOR1");
}

TEST_F(PlateTest, MirrorBoundariesCopyTheEdgeRowsInTheirOrder)
{
    build(10, 10);
    DoubleMatrix& u = model.convergence[1];
    auto reset = [&u] {
        u.fill(0);
        for (int x = 1; x <= 10; ++x)
            for (int y = 1; y <= 10; ++y) u(x, y) = 100 * x + y;
    };
    struct Side {
        int* flag;
        int x0, y0, dx, dy;  // a rim element and the step along the rim
        int fromX, fromY;    // offset of the interior neighbour
    };
    const Side sides[4] = {{&model.boundaryNorth, 0, 11, 1, 0, 0, -1},
                           {&model.boundaryEast, 11, 0, 0, 1, -1, 0},
                           {&model.boundarySouth, 0, 0, 1, 0, 0, 1},
                           {&model.boundaryWest, 0, 0, 0, 1, 1, 0}};
    for (const Side& side : sides) {
        reset();
        *side.flag = 1;
        model.MirrorBoundaries(u);
        for (int n = 1; n <= 10; ++n) {
            const int x = side.x0 + n * side.dx, y = side.y0 + n * side.dy;
            EXPECT_EQ(u(x, y), u(x + side.fromX, y + side.fromY));
        }
        // the opposite rim stays at zero
        EXPECT_EQ(u(side.dx ? 5 : 11 - side.x0, side.dy ? 5 : 11 - side.y0), 0);
        *side.flag = 0;
    }
    reset();
    model.boundaryNorth = model.boundaryEast = model.boundarySouth = model.boundaryWest = 1;
    model.MirrorBoundaries(u);
    EXPECT_EQ(u(11, 11), u(10, 10));
    EXPECT_EQ(u(0, 0), u(1, 1));
    EXPECT_EQ(u(11, 0), u(10, 1));
}

TEST(AverageConvergence, BlocksAreMeansAndFactorOneCopies)
{
    DoubleMatrix fine, coarse;
    dmatrix(fine, 0, 5, 0, 5);
    dmatrix(coarse, 1, 4, 1, 4);
    coarse.fill(7);
    for (int x = 1; x <= 4; ++x)
        for (int y = 1; y <= 4; ++y) fine(x, y) = x * 10 + y;
    CModelDat::AverageConvergence(fine, 4, 4, coarse, 2, 2, 2);
    EXPECT_EQ(coarse(1, 1), (11 + 12 + 21 + 22) / 4.0);
    EXPECT_EQ(coarse(2, 1), (31 + 32 + 41 + 42) / 4.0);
    EXPECT_EQ(coarse(1, 2), (13 + 14 + 23 + 24) / 4.0);
    EXPECT_EQ(coarse(3, 3), 7);  // beyond the coarse counts nothing changes
    CModelDat::AverageConvergence(fine, 4, 4, coarse, 4, 4, 1);
    for (int x = 1; x <= 4; ++x)
        for (int y = 1; y <= 4; ++y) EXPECT_EQ(coarse(x, y), fine(x, y));
}

}  // namespace
}  // namespace vorn::testing
