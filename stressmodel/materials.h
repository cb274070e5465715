// The in-seam material laws: strain to vertical stress for the six material
// types, and the inverse routines (stress to strain) that complete the set.
// Closure and compression count positive; properties are the model's floats.
#pragma once

namespace vorn {

enum MaterialType : int {
    kLinearElasticCoal = 1,
    kStrainSofteningCoal = 2,
    kElasticPlasticCoal = 3,
    kBilinearHardeningGob = 4,
    kStrainHardeningGob = 5,
    kLinearElasticGob = 6,
};

// The name printed for a type ("Linear Elastic Coal", ...), or nullptr.
const char* materialTypeName(int type);

// One material with its properties widened and its single-precision
// ratios formed once, as the laws use them.
struct MaterialLaw {
    int type = 0;
    double p1 = 0, p2 = 0, p3 = 0, p4 = 0;
    double elasticRatio = 0;  // P1 / P2 in single precision
    double hardening = 0;     // type 5: k = (P2 - P1) / P3 in single precision
    double hardeningScale = 0; // type 5: P1 / k

    static MaterialLaw from(int type, const float properties[5]);
    // Stress at strain e; only for types 1 to 6.
    double stress(double e) const;
    // The stresses of a run of elements of this material: s[k] = stress of
    // u[k] / thickness, with the law chosen once for the run. The same
    // numbers as `stress`, element by element.
    void stressRun(const double* u, double* s, int count, double thickness) const;

private:
    void hardeningRun(const double* u, double* s, int count, double thickness) const;
};

// Material index of a mesh code: "A".."Z" give 0..25, "0" 26, "1" 27.
inline int materialIndex(char code)
{
    const int c = static_cast<signed char>(code);
    return c >= 65 ? c - 65 : c - 22;
}
inline constexpr int kCodeZero = 26;
inline constexpr int kCodeMined = 27;

// Strain from stress. Types 2 and 3 refuse a stress above the peak: the
// message goes to the console and a box, and the process ends (status 1).
double softeningStrain(const float properties[5], double stress);
double elasticPlasticStrain(const float properties[5], double stress);
double bilinearGobStrain(const float properties[5], double stress);
double hardeningGobStrain(const float properties[5], double stress);

}  // namespace vorn
