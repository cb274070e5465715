// The result files of a run: the printed model and log `.out`, the timing
// profile, the element files `.f<seam>` and the off-seam file `.off`.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "base/report.h"
#include "base/textnum.h"
#include "base/processend.h"
#include "stressmodel/modeldat.h"

using vorn::formatString;

namespace {

// The bit pattern of a 64-bit count read as a double, as a "%g" given the
// integer shows it.
double bitsAsDouble(int64_t value)
{
    double result;
    std::memcpy(&result, &value, sizeof result);
    return result;
}

}  // namespace

void vorn::printRockMass(vorn::TextWriter& out, float poisson, float modulus, float layerThickness)
{
    out.write("  IN THE FOLLOWING X,Y,Z REFER TO GLOBAL AXES OR COORDINATES\n");
    out.write("  AND X1,X2,X3 OR 1,2,3 REFER TO LOCAL AXES OR COORDINATES\n\n");
    out.write("  ROCK MASS PROPERTIES\n\n");
    out.printf("  POISSONS RATIO        - %f\n", poisson);
    out.printf("  MODULUS OF ELASTICITY - %f\n", modulus);
    out.printf("  LAYER THICKNESS       - %f\n", layerThickness);
}

void vorn::printElementGrid(vorn::TextWriter& out, float width, int countX, int countY, float density)
{
    out.printf("  WIDTH OF ELEMENTS               -- %f\n", width);
    out.printf("  NO. OF ELEMENTS ALONG X AXIS    -- %i\n", countX);
    out.printf("  NO. OF ELEMENTS ALONG Y AXIS    -- %i\n", countY);
    out.printf("  DENSITY OF OVERBURDEN           -- %f\n\n", density);
    out.write("  GLOBAL COORDINATES OF LOCAL ORIGINS AND SEAM THICKNESSES\n");
    out.write("  SEAM NO.         X           Y           Z     THICKNESS\n");
}

void vorn::printUnitSystem(vorn::TextWriter& out, int unitCode)
{
    out.printf("  The units system integer is: - %i\n", unitCode);
    out.write("  This means that the parameter values were input to the pre-processor in: \n");
    switch (unitCode) {
    case 0:
        out.write("  - inches and psi,\n  and are listed in this output as consistent units of: \n");
        out.write("  - inches and psi. \n\n");
        break;
    case 1:
        out.write("  - feet and psi,\n  but are listed in this output as consistent units of: \n");
        out.write("  - inches and psi. \n\n");
        break;
    case 2:
        out.write("  - meters and Pascals,\n  and are listed in this output as consistent units of: \n");
        out.write("  - meters and Pascals. \n\n");
        break;
    case 3:
        out.write("  - meters and MegaPascals,\n  but are listed in this output as consistent units of: \n");
        out.write("  - meters and Pascals. \n\n");
        break;
    default: break;
    }
}

namespace {

// The property lines of each material type, in slot order.
const char* const kPropertyLines[7][5] = {
    {},
    {"  Elastic Modulus     - %12g\n", "  Shear Modulus       - %12g\n"},
    {"  Peak Stress         - %12g\n", "  Peak Strain         - %12g\n", "  Residual Stress     - %12g\n",
     "  Residual Strain     - %12g\n", "  Poissons Ratio      - %12g\n"},
    {"  Peak Stress         - %12g\n", "  Peak Strain         - %12g\n", "  Plastic Modulus     - %12g\n",
     "  Poissons Ratio      - %12g\n"},
    {"  Initial Stress      - %12g\n", "  Initial Strain      - %12g\n", "  Hardening Modulus   - %12g\n",
     "  Gob Height Factor   - %12g\n", "  Poissons Ratio      - %12g\n"},
    {"  Initial Modulus at Zero Stress - %12g\n", "  Final Modulus at Peak Stress   - %12g\n",
     "  Peak Stress                    - %12g\n", "  Gob Height Factor              - %12g\n",
     "  Poissons Ratio                 - %12g\n"},
    {"  Elastic Modulus     - %12g\n", "  Shear Modulus       - %12g\n", "  Gob Height Factor   - %12g\n"},
};

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

constexpr const char* kRule = "-----------------------------------------------------------------------\n";

}  // namespace

void CModelDat::PrintMaterial(vorn::TextWriter& out, int m)
{
    const int type = materialType[m];
    if (type < 1 || type > 6) {
        AfxMessageBox("Invalid Material Type - Must Be Between 1 and 6 - PI3\n");
        return;
    }
    out.printf("  Material Number     - %i\n", m + 1);
    out.printf("  %s\n", vorn::materialTypeName(type));
    for (int slot = 0; slot < 5 && kPropertyLines[type][slot]; ++slot)
        out.printf(kPropertyLines[type][slot], static_cast<double>(materialProperty[m][slot]));
    out.write("\n");
}

int CModelDat::PrintStepCodes(vorn::TextWriter& out, int step)
{
    std::unique_ptr<std::FILE, FileCloser> in(std::fopen(formatString("STEP%i.CHR", step).c_str(), "r"));
    for (int s = 1; s <= seamCount; ++s) {
        out.printf("     FINE MESH, STEP = %i, SEAM = %i\n\n", step, s);
        for (int y = elementsY; y >= 1; --y) {
            for (int x = 1; x <= elementsX; ++x) {
                char code;
                if (!in || std::fscanf(in.get(), "%c ", &code) != 1) {
                    AfxMessageBox("Error reading the fine mesh codes - PI4\n");
                    return 4;
                }
                out.writeRaw(std::string_view(&code, 1));
            }
            out.write("\n");
        }
        out.write("\n");
    }
    return 0;
}

int CModelDat::PrintInput()
{
    vorn::TextWriter out;
    if (!out.open(outPath)) {
        AfxMessageBox("Error in Opening Output File - PI1\n");
        return 1;
    }
    out.printf("%s\n", title.c_str());
    vorn::printRockMass(out, poisson, modulus, layerThickness);
    out.printf("  NO. OF SEAMS          - %i\n", seamCount);
    out.printf("  NO. OF MATERIALS      - %i\n", materialCount);
    out.printf("  SYSTEM OF UNITS       - %i\n\n", unitCode);
    vorn::printUnitSystem(out, unitCode);

    out.write("  IN_SEAM MATERIAL PROPERTIES\n\n");
    for (int m = 0; m < materialCount; ++m) PrintMaterial(out, m);

    out.write("  GENERAL MODEL DATA\n\n");
    out.printf("  NO. OF PARALLEL SEAMS           -- %i\n", seamCount);
    vorn::printElementGrid(out, elementWidth, elementsX, elementsY, density);
    for (int s = 1; s <= seamCount; ++s)
        out.printf("%8i%12.2f%12.2f%12.2f%12.2f\n", materialCount, seamX[s], seamY[s], seamZ[s], seamThickness[s]);
    out.write("\n");

    out.write("  PROGRAM FLOW CONTROL PARAMETERS\n\n");
    out.printf("  OVER RELAXATION FACTOR          -- %f\n", overRelaxation);
    out.printf("  MAXIMUM NO. OF ITERATIONS       -- %i\n", maxIterations);
    out.printf("  STRESS CONVERGENCE CRITERION    -- %f\n", tolerance);
    out.printf("  STARTING MINING STEP NUMBER     -- %i\n", startStep);
    out.printf("  NUMBER OF NEW STEPS             -- %i\n", stepCount);
    out.printf("  INCLUDE SURFACE EFFECTS         -- %i\n", surfaceEffects);
    out.printf("  NO. OF OFF SEAM PLANES SELECTED -- %i\n", offSeamPlanes);
    out.printf("  CALCULATE TOPOGRAPHIC STRESS    -- %i\n\n", topographicStress);

    out.write("  BOUNDARY CONDITION VALUES\n\n");
    out.printf("  THE NORTH BOUNDARY CONDITION -- %i\n", boundaryNorth);
    out.printf("  THE EAST BOUNDARY CONDITION  -- %i\n", boundaryEast);
    out.printf("  THE SOUTH BOUNDARY CONDITION -- %i\n", boundarySouth);
    out.printf("  THE WEST BOUNDARY CONDITION  -- %i\n\n", boundaryWest);

    if (offSeamPlanes == 1) {
        out.write("  OFF-SEAM GRID DETAILS\n\n");
        out.printf("  X COORDINATE OF OFF-SEAM GRID ORIGIN -- %f\n", offSeamX);
        out.printf("  Y COORDINATE OF OFF-SEAM GRID ORIGIN -- %f\n", offSeamY);
        out.printf("  Z COORDINATE OF OFF-SEAM GRID ORIGIN -- %f\n", offSeamZ);
        out.printf("  WIDTH OF OFF-SEAM BLOCKS             -- %f\n", offSeamWidth);
        out.printf("  NO. OF OFF_SEAM BLOCKS ALONG X AXIS  -- %i\n", offSeamCountX);
        out.printf("  NO. OF OFF_SEAM BLOCKS ALONG Y AXIS  -- %i\n", offSeamCountY);
        out.printf("  TOTAL NO. OF OFF_SEAM BLOCKS         -- %i\n\n", offSeamTotal);
    }
    for (int step = 1; step <= stepCount; ++step)
        if (PrintStepCodes(out, step) != 0) return 4;
    out.write("\n");
    if (!out.close()) {
        AfxMessageBox("Trouble Printing Input File - PI2\n");
        return 2;
    }
    return 0;
}

// ---------------------------------------------------------------- profile

void CModelDat::PrintProfileTable(vorn::TextWriter& stream, const ModelProfile& record)
{
    stream.write(kRule);
    stream.write("|  Detail | Solution|   SOR   |   SOR   | Surface |InterSeam|  Total  |\n");
    stream.write("|  Level  |  Loops  |  Iters. |  Secs.  |  Secs.  |  Secs.  |  Secs.  |\n");
    stream.write(kRule);
    int loops = 0, iterations = 0;
    int64_t sor = 0, surface = 0, interseam = 0;
    for (int level = 3; level >= 0; --level) {
        const int64_t total = record.sorSeconds[level] + record.surfaceSeconds[level] + record.interseamSeconds[level];
        stream.printf("|   %2i    |  %5i  | %7i | %7i | %7i | %7i | %7i |\n", level, record.loops[level],
                      record.iterations[level], static_cast<int>(record.sorSeconds[level]),
                      static_cast<int>(record.surfaceSeconds[level]), static_cast<int>(record.interseamSeconds[level]),
                      static_cast<int>(total));
        loops += record.loops[level];
        iterations += record.iterations[level];
        sor += record.sorSeconds[level];
        surface += record.surfaceSeconds[level];
        interseam += record.interseamSeconds[level];
    }
    stream.write(kRule);
    stream.printf("             %5i    %7i   %7i   %7i   %7i   %7i  \n\n\n", loops, iterations, static_cast<int>(sor),
                  static_cast<int>(surface), static_cast<int>(interseam), static_cast<int>(sor + surface + interseam));
}

void CModelDat::PrintProfile(int step, vorn::TextWriter& stream)
{
    stream.printf("Profile Information for Step %i\n\n", step);
    ModelProfile& sum = profile[0];
    for (int s = 1; s <= seamCount; ++s) {
        stream.printf("For Seam #%i --\n", s);
        const ModelProfile& seam = profile[s];
        PrintProfileTable(stream, seam);
        for (int level = 0; level < 4; ++level) {
            sum.loops[level] += seam.loops[level];
            sum.iterations[level] += seam.iterations[level];
            sum.sorSeconds[level] += seam.sorSeconds[level];
            sum.surfaceSeconds[level] += seam.surfaceSeconds[level];
            sum.interseamSeconds[level] += seam.interseamSeconds[level];
        }
    }
}

void CModelDat::PrintFinalProfile(vorn::TextWriter& stream)
{
    if (topographicStress == 1)
        stream.printf("Total Time for Topographic Stress Calculations was %g secs.\n\n",
                      bitsAsDouble(profile[0].topographicSeconds));
    if (offSeamPlanes == 1)
        stream.printf("Total Time for Off-Seam Displacement Calculations was %g secs.\n\n",
                      bitsAsDouble(profile[0].offSeamSeconds));
    stream.write("Final Cumulative Profile Information for all Steps and Seams.\n");
    PrintProfileTable(stream, profile[0]);
}

// ---------------------------------------------------------------- element files

void CModelDat::ConvertUnits()
{
    if (unitCode == 1) {
        for (int s = 1; s <= seamCount; ++s) {
            vorn::DoubleMatrix& u = convergence[s];
            for (int x = 0; x <= elementsX + 1; ++x)
                for (int y = 0; y <= elementsY + 1; ++y) u(x, y) *= lengthScale;
        }
    } else if (unitCode == 3) {
        for (int s = 1; s <= seamCount; ++s) {
            for (vorn::DoubleCube* cube : {&verticalStress, &surfaceStress, &interseamStress, &overburdenStress}) {
                vorn::DoubleMatrix& m = (*cube)[s];
                for (int x = 1; x <= elementsX; ++x)
                    for (int y = 1; y <= elementsY; ++y) m(x, y) *= stressScale;
            }
        }
    }
}

int CModelDat::WriteElementFiles(int step)
{
    ConvertUnits();
    for (int s = 1; s <= seamCount; ++s) {
        vorn::TextWriter out;
        const std::string path = elementPath + formatString("%i", s);
        if (!(step == 1 ? out.open(path) : out.openAppend(path))) {
            AfxMessageBox("Error in Opening Output File - PES1\n");
            return 1;
        }
        if (step == 1) {
            out.printf("%3i, %7i, %12.5g, %3i, %3i, %12.5g, %12.5g\n", stepCount, elementsX * elementsY,
                       static_cast<double>(elementWidth), elementsX, elementsY, static_cast<double>(seamX[s]),
                       static_cast<double>(seamY[s]));
            out.write(headerItems);
            out.write(headerUnits);
        }
        std::string line;
        for (int x = 1; x <= elementsX; ++x) {
            for (int y = 1; y <= elementsY; ++y) {
                // "%12.5g, %12.5g, %12.5g, %12.5g, %12.5g\n"
                line.clear();
                for (const double value : {convergence(s, x, y), verticalStress(s, x, y), surfaceStress(s, x, y),
                                           interseamStress(s, x, y), overburdenStress(s, x, y)}) {
                    if (!line.empty()) line += ", ";
                    vorn::appendGeneral(line, value, 12, 5);
                }
                line += '\n';
                out.write(line);
            }
        }
    }
    return 0;
}

void CModelDat::OffSeamDisplacement(int step)
{
    vorn::TextWriter out;
    if (!(step == 1 ? out.open(offSeamPath) : out.openAppend(offSeamPath))) {
        AfxMessageBox("Error in Opening Off-Seam Output File - OS1\n");
        vorn::endProcess(1);
    }
    offSeamResult.fill(0);
    for (int s = 1; s <= seamCount; ++s) {
        const float below = seamZ[s] - offSeamZ;
        RemoteDisplacement(convergence[s], elementsX, elementsY, elementWidth, seamX[s], seamY[s], offSeamResult,
                           offSeamCountX, offSeamCountY, offSeamWidth, offSeamX, offSeamY, below, 0);
        if (surfaceEffects == 1) {
            const float mirrored = -seamZ[s] - offSeamZ;
            RemoteDisplacement(convergence[s], elementsX, elementsY, elementWidth, seamX[s], seamY[s], offSeamResult,
                               offSeamCountX, offSeamCountY, offSeamWidth, offSeamX, offSeamY, mirrored, 1);
        }
    }
    if (step == 1) {
        out.printf("%3i, %7i, %12.5g, %3i, %3i, %12.5g, %12.5g\n", stepCount, offSeamCountX * offSeamCountY,
                   static_cast<double>(offSeamWidth), offSeamCountX, offSeamCountY, static_cast<double>(offSeamX),
                   static_cast<double>(offSeamY));
        out.printf("%3d,Off-seam Displacment\n", 1);
        out.printf("%3d,%s\n", 1, lengthUnit.c_str());
    }
    std::string line;
    for (int x = 1; x <= offSeamCountX; ++x) {
        for (int y = 1; y <= offSeamCountY; ++y) {
            line.clear();
            vorn::appendGeneral(line, offSeamResult(x, y) * lengthScale, 12, 5);  // "%12.5g\n"
            line += '\n';
            out.write(line);
        }
    }
}
