#include "stressmodel/influence_fft.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <vector>

namespace vorn {

namespace {
using Complex = std::complex<double>;

// An in-place radix-2 FFT of one power-of-two length, with its twiddles
// computed each from the angle (not by recurrence) to keep the rounding small.
class Fft {
public:
    explicit Fft(std::size_t length) : n_(length), twiddles_(length / 2), reversed_(length)
    {
        for (std::size_t k = 0; k < n_ / 2; ++k) {
            const double angle = -2.0 * M_PI * static_cast<double>(k) / static_cast<double>(n_);
            twiddles_[k] = Complex(std::cos(angle), std::sin(angle));
        }
        int bits = 0;
        while ((std::size_t{1} << bits) < n_) ++bits;
        for (std::size_t k = 0; k < n_; ++k) {
            std::size_t r = 0;
            for (int b = 0; b < bits; ++b)
                if (k & (std::size_t{1} << b)) r |= std::size_t{1} << (bits - 1 - b);
            reversed_[k] = r;
        }
    }
    std::size_t size() const { return n_; }

    void forward(Complex* data) const { transform(data, false); }
    // The inverse, scaled by 1 / n.
    void inverse(Complex* data) const
    {
        transform(data, true);
        const double scale = 1.0 / static_cast<double>(n_);
        for (std::size_t k = 0; k < n_; ++k) data[k] *= scale;
    }

private:
    void transform(Complex* data, bool inverse) const
    {
        for (std::size_t k = 0; k < n_; ++k)
            if (k < reversed_[k]) std::swap(data[k], data[reversed_[k]]);
        for (std::size_t half = 1; half < n_; half *= 2) {
            const std::size_t step = n_ / (2 * half);
            for (std::size_t start = 0; start < n_; start += 2 * half) {
                for (std::size_t k = 0; k < half; ++k) {
                    const Complex w = inverse ? std::conj(twiddles_[k * step]) : twiddles_[k * step];
                    const Complex odd = w * data[start + k + half];
                    data[start + k + half] = data[start + k] - odd;
                    data[start + k] += odd;
                }
            }
        }
    }

    std::size_t n_;
    std::vector<Complex> twiddles_;
    std::vector<std::size_t> reversed_;
};

std::size_t powerOfTwoAtLeast(std::size_t n)
{
    std::size_t p = 1;
    while (p < n) p *= 2;
    return p;
}

// A whole ratio of source to target width, or 0.
int wholeRatio(double sourceWidth, double targetWidth)
{
    const double ratio = sourceWidth / targetWidth;
    const long whole = std::lround(ratio);
    if (whole < 1 || static_cast<double>(whole) * targetWidth != sourceWidth) return 0;
    return static_cast<int>(whole);
}

bool coversAll(double firstCentre, double lastCentre, double radius, int count)
{
    const IndexWindow first = stressWindow(firstCentre, radius, count);
    const IndexWindow last = stressWindow(lastCentre, radius, count);
    return first.lo == 1 && first.hi == count && last.lo == 1 && last.hi == count;
}

// One direction of the pass: source count, target count, width ratio and
// the offset of the centres, dx = shift + d * w for index offset d.
struct Axis {
    int sourceCount;
    int targetCount;
    int ratio;
    double shift;
    std::size_t length;  // FFT length
    // Index offset d = l' - p' runs from -ratio * (sourceCount - 1) to
    // targetCount - 1; it sits at (d mod length).
    std::size_t slotOf(long d) const { return static_cast<std::size_t>(d < 0 ? d + static_cast<long>(length) : d); }
    long lowest() const { return -static_cast<long>(ratio) * (sourceCount - 1); }
    long highest() const { return targetCount - 1; }
};

Axis axisOf(int sourceCount, int targetCount, double sourceOrigin, double targetOrigin, double targetWidth, int ratio)
{
    Axis axis{sourceCount, targetCount, ratio, 0.0, 0};
    axis.shift = targetOrigin - sourceOrigin + 0.5 * targetWidth - 0.5 * ratio * targetWidth;
    axis.length = powerOfTwoAtLeast(static_cast<std::size_t>(targetCount) + static_cast<std::size_t>(ratio) * (sourceCount - 1));
    return axis;
}

// The spectrum of first(d) + i second(d) over the axis's offsets, where
// t = dx^2 / D and the two factors are functions of t.
template <class First, class Second>
std::vector<Complex> kernelSpectrum(const Axis& axis, const Fft& fft, double width, double spread, First first, Second second)
{
    std::vector<Complex> kernel(axis.length, Complex(0, 0));
    for (long d = axis.lowest(); d <= axis.highest(); ++d) {
        const double dx = axis.shift + static_cast<double>(d) * width;
        const double t = dx * dx / spread;
        const double e = std::exp(-t);
        kernel[axis.slotOf(d)] = Complex(first(t, e), second(t, e));
    }
    fft.forward(kernel.data());
    return kernel;
}
}  // namespace

bool fullWindowConvolution(const KernelField& source, const KernelField& target, double distance)
{
    const double w = target.width;
    if (wholeRatio(source.width, w) == 0) return false;
    const double radius = std::fabs(distance) * 10 / w;
    const double ratio = source.width / w;
    const double offsetX = (source.originX - target.originX) / w;
    const double offsetY = (source.originY - target.originY) / w;
    return coversAll(0.5 * ratio + 0.5 + offsetX, (source.countX - 0.5) * ratio + 0.5 + offsetX, radius, target.countX) &&
           coversAll(0.5 * ratio + 0.5 + offsetY, (source.countY - 0.5) * ratio + 0.5 + offsetY, radius, target.countY);
}

bool convolutionPays(const KernelField& source, const KernelField& target)
{
    // The separable sums cost about sourceX * targetY * (sourceY + targetX)
    // products; the convolutions about (sourceX + targetY) FFT pairs of
    // twice a side, each step of which costs some six products (measured:
    // on one lattice the two forms meet near 200 x 200, for a source of
    // twice the width near 500 x 500).
    const double separable = static_cast<double>(source.countX) * target.countY * (source.countY + target.countX);
    const double side = 2.0 * std::max(target.countX, target.countY);
    const double convolution = 2.0 * (source.countX + target.countY) * side * std::log2(side) * 6.0;
    return convolution < separable;
}

bool propagateStressByConvolution(const KernelField& source, const KernelField& target, double distance,
                                  const KernelRock& rock, const RowCallback& beforeRow)
{
    const double lamination = rock.lamination;
    const double prefactor = rock.modulus / (lamination * kEightPi * distance * distance);
    const double spread = static_cast<double>(rock.lamination * 4.0f) * std::fabs(distance);
    const double w = target.width;
    const double scale = prefactor * (source.width * source.width);
    const int ratio = wholeRatio(source.width, w);
    const Axis ax = axisOf(source.countX, target.countX, source.originX, target.originX, w, ratio);
    const Axis ay = axisOf(source.countY, target.countY, source.originY, target.originY, w, ratio);
    const Fft fftX(ax.length);
    const Fft fftY(ay.length);

    // Along y: e^-b + i (b - 1) e^-b; along x: a e^-a + i e^-a.
    const std::vector<Complex> spectrumY = kernelSpectrum(
        ay, fftY, w, spread, [](double, double e) { return e; }, [](double t, double e) { return (t - 1) * e; });
    const std::vector<Complex> spectrumX = kernelSpectrum(
        ax, fftX, w, spread, [](double t, double e) { return t * e; }, [](double, double e) { return e; });

    // Each source row summed along y for every target column: SE + i SR.
    const std::size_t columns = static_cast<std::size_t>(target.countY);
    std::vector<Complex> rowSums(static_cast<std::size_t>(source.countX) * columns);
    std::vector<Complex> buffer(std::max(ax.length, ay.length));
    for (int i = 1; i <= source.countX; ++i) {
        if (beforeRow && !beforeRow(i, source.countX)) return false;
        std::fill(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(ay.length), Complex(0, 0));
        const double* row = &source.at(i, 1);
        for (int j = 0; j < source.countY; ++j) buffer[static_cast<std::size_t>(j) * ratio] = Complex(row[j], 0);
        fftY.forward(buffer.data());
        for (std::size_t k = 0; k < ay.length; ++k) buffer[k] *= spectrumY[k];
        fftY.inverse(buffer.data());
        std::copy(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(columns),
                  rowSums.begin() + static_cast<std::ptrdiff_t>((i - 1) * columns));
    }

    // Each target column spread along x: with z = SE + i SR and its
    // spectrum Z, SE and SR have the spectra (Z(k) + conj Z(-k)) / 2 and
    // (Z(k) - conj Z(-k)) / 2i, weighted by the x spectra of a e^-a and e^-a.
    const std::size_t n = ax.length;
    std::vector<Complex> kernelA(n), kernelG(n);
    for (std::size_t k = 0; k < n; ++k) {
        const Complex h = spectrumX[k];
        const Complex hm = std::conj(spectrumX[(n - k) % n]);
        kernelA[k] = (h + hm) * 0.5;
        kernelG[k] = (h - hm) * Complex(0, -0.5);
    }
    std::vector<Complex> out(n);
    for (std::size_t l = 0; l < columns; ++l) {
        std::fill(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(n), Complex(0, 0));
        for (int i = 0; i < source.countX; ++i) buffer[static_cast<std::size_t>(i) * ratio] = rowSums[static_cast<std::size_t>(i) * columns + l];
        fftX.forward(buffer.data());
        for (std::size_t k = 0; k < n; ++k) {
            const Complex z = buffer[k];
            const Complex zm = std::conj(buffer[(n - k) % n]);
            out[k] = (z + zm) * 0.5 * kernelA[k] + (z - zm) * Complex(0, -0.5) * kernelG[k];
        }
        fftX.inverse(out.data());
        for (int k = 1; k <= target.countX; ++k) target.at(k, static_cast<int>(l) + 1) += scale * out[static_cast<std::size_t>(k - 1)].real();
    }
    return true;
}

}  // namespace vorn
