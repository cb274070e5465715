#include "stressmodel/materials.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include "base/processend.h"
#include "base/report.h"

namespace vorn {

const char* materialTypeName(int type)
{
    switch (type) {
    case kLinearElasticCoal: return "Linear Elastic Coal";
    case kStrainSofteningCoal: return "Strain Softening Coal";
    case kElasticPlasticCoal: return "Elastic-Plastic Coal";
    case kBilinearHardeningGob: return "Bi-Linear Hardening Gob";
    case kStrainHardeningGob: return "Strain Hardening Gob";
    case kLinearElasticGob: return "Linear Elastic Gob";
    default: return nullptr;
    }
}

MaterialLaw MaterialLaw::from(int type, const float properties[5])
{
    MaterialLaw law;
    law.type = type;
    law.p1 = properties[0];
    law.p2 = properties[1];
    law.p3 = properties[2];
    law.p4 = properties[3];
    law.elasticRatio = properties[0] / properties[1];
    if (type == kStrainHardeningGob) {
        const float k = (properties[1] - properties[0]) / properties[2];
        law.hardening = k;
        law.hardeningScale = law.p1 / law.hardening;
    }
    return law;
}

namespace {
// Elastic up to the peak strain, then the plastic (hardening) modulus.
double elasticPlastic(const MaterialLaw& m, double e)
{
    if (e < m.p2) return m.elasticRatio * e;
    return m.p3 * (e - m.p2) + m.p1;
}
}  // namespace

double MaterialLaw::stress(double e) const
{
    switch (type) {
    case kLinearElasticCoal: return p1 * e;
    case kStrainSofteningCoal:
        if (e < p2) return elasticRatio * e;
        if (e >= p4) return p3;
        return (p3 - p1) * ((e - p2) / (p4 - p2)) + p1;
    case kElasticPlasticCoal: return elasticPlastic(*this, e);
    case kBilinearHardeningGob: return elasticPlastic(*this, e / p4);
    case kStrainHardeningGob: return (std::exp(e / p4 * hardening) - 1) * hardeningScale;
    case kLinearElasticGob: return (e / p3) * p1;
    default: return 0;
    }
}

void MaterialLaw::stressRun(const double* u, double* s, int count, double thickness) const
{
    switch (type) {
    case kLinearElasticCoal:
        for (int k = 0; k < count; ++k) s[k] = p1 * (u[k] / thickness);
        return;
    case kStrainSofteningCoal:
        for (int k = 0; k < count; ++k) {
            const double e = u[k] / thickness;
            s[k] = e < p2 ? elasticRatio * e : (e >= p4 ? p3 : (p3 - p1) * ((e - p2) / (p4 - p2)) + p1);
        }
        return;
    case kElasticPlasticCoal:
        for (int k = 0; k < count; ++k) s[k] = elasticPlastic(*this, u[k] / thickness);
        return;
    case kBilinearHardeningGob:
        for (int k = 0; k < count; ++k) s[k] = elasticPlastic(*this, u[k] / thickness / p4);
        return;
    case kStrainHardeningGob: hardeningRun(u, s, count, thickness); return;
    case kLinearElasticGob:
        for (int k = 0; k < count; ++k) s[k] = (u[k] / thickness / p3) * p1;
        return;
    default:
        for (int k = 0; k < count; ++k) s[k] = 0;
        return;
    }
}

void MaterialLaw::hardeningRun(const double* u, double* s, int count, double thickness) const
{
    for (int k = 0; k < count; ++k) s[k] = (std::exp(u[k] / thickness / p4 * hardening) - 1) * hardeningScale;
}

namespace {
[[noreturn]] void refuseAbovePeak(const std::string& message)
{
    consolePrintf("%s", message.c_str());
    AfxMessageBox(message.substr(0, message.size() - 1));
    vorn::endProcess(1);
}
}  // namespace

double softeningStrain(const float properties[5], double stress)
{
    if (stress > properties[0]) refuseAbovePeak("Stress is Greater Than Peak Stress - SSS1\n");
    return (static_cast<double>(properties[1]) / properties[0]) * stress;
}

double elasticPlasticStrain(const float properties[5], double stress)
{
    if (stress > properties[0]) refuseAbovePeak("Primitive Stress is Greater Than Peak Stress - EPS1\n");
    return (static_cast<double>(properties[1]) / properties[0]) * stress;
}

double bilinearGobStrain(const float properties[5], double stress)
{
    const double p1 = properties[0], p2 = properties[1], p3 = properties[2], p4 = properties[3];
    if (stress < p1) return (p2 / p1) * stress * p4;
    return ((stress - p1) / p3 + p2) * p4;
}

double hardeningGobStrain(const float properties[5], double stress)
{
    const double k = static_cast<float>((properties[1] - properties[0]) / properties[2]);
    const double p1 = properties[0], p4 = properties[3];
    return std::log(stress / p1 * k + 1) * (p4 / k) * p4;
}

}  // namespace vorn
