// Numeric arrays of the stress model, indexed directly within the ranges
// they were made for: a matrix over [lowX..highX] x [lowY..highY] and a cube
// of such matrices over [lowS..highS]. A matrix lies in one contiguous block,
// y running fastest, so element (x, y+1) follows (x, y) and a row x is a
// plain run of doubles for the inner loops.
//
// When memory runs out the allocators do what the system has always done:
// a line "allocation failure N in NAME()" on the standard error stream, then
// "...now exiting to the system...", and the process ends with status 1.
#pragma once

#include <climits>
#include <cstddef>
#include <vector>

namespace vorn {

// Whether a count of a topographic surface can make a plate: at least one
// value, and room for the rim of the plate's matrix (count + 1 is an index).
inline bool isPlateCount(int count) { return count > 0 && count < INT_MAX; }

// Writes the allocation failure lines and ends the process (status 1).
[[noreturn]] void allocationFailure(const char* message);

// Allocates `count` zeroed elements, or reports `message` and exits.
template <class T>
void allocateOrExit(std::vector<T>& storage, long long count, const char* message)
{
    if (count < 0) allocationFailure(message);
    try {
        storage.assign(static_cast<std::size_t>(count), T{});
    } catch (...) {
        allocationFailure(message);
    }
}

template <class T>
class IndexedMatrix {
public:
    IndexedMatrix() = default;

    // Allocates and zeroes; the names are the allocator's for its failure line.
    void allocate(int lowX, int highX, int lowY, int highY, const char* failureLine)
    {
        lowX_ = lowX;
        highX_ = highX;
        lowY_ = lowY;
        highY_ = highY;
        stride_ = highY - lowY + 1;
        allocateOrExit(data_, static_cast<long long>(highX - lowX + 1) * stride_, failureLine);
    }
    void free()
    {
        data_.clear();
        data_.shrink_to_fit();
        stride_ = 0;
    }
    bool allocated() const { return !data_.empty(); }

    T& operator()(int x, int y) { return data_[offset(x, y)]; }
    const T& operator()(int x, int y) const { return data_[offset(x, y)]; }
    // Pointer to element (x, y); the row x continues contiguously from it.
    T* at(int x, int y) { return data_.data() + offset(x, y); }
    const T* at(int x, int y) const { return data_.data() + offset(x, y); }
    // Distance between (x, y) and (x + 1, y).
    std::ptrdiff_t stride() const { return stride_; }

    void fill(T value)
    {
        for (T& element : data_) element = value;
    }

    int lowX() const { return lowX_; }
    int highX() const { return highX_; }
    int lowY() const { return lowY_; }
    int highY() const { return highY_; }

private:
    std::size_t offset(int x, int y) const
    {
        return static_cast<std::size_t>(static_cast<std::ptrdiff_t>(x - lowX_) * stride_ + (y - lowY_));
    }

    int lowX_ = 0, highX_ = -1, lowY_ = 0, highY_ = -1;
    std::ptrdiff_t stride_ = 0;
    std::vector<T> data_;
};

template <class T>
class IndexedCube {
public:
    // Matrices [lowS..highS], each over [lowX..highX] x [lowY..highY].
    // `outerFailure` and `innerFailure` are the two failure lines.
    void allocate(int lowS, int highS, int lowX, int highX, int lowY, int highY, const char* outerFailure,
                  const char* innerFailure)
    {
        lowS_ = lowS;
        std::vector<IndexedMatrix<T>> fresh;
        allocateOrExit(fresh, static_cast<long long>(highS) - lowS + 1, outerFailure);
        for (IndexedMatrix<T>& matrix : fresh) matrix.allocate(lowX, highX, lowY, highY, innerFailure);
        layers_ = std::move(fresh);
    }
    void free() { layers_.clear(); }
    bool allocated() const { return !layers_.empty(); }

    IndexedMatrix<T>& operator[](int s) { return layers_[static_cast<std::size_t>(s - lowS_)]; }
    const IndexedMatrix<T>& operator[](int s) const { return layers_[static_cast<std::size_t>(s - lowS_)]; }
    T& operator()(int s, int x, int y) { return (*this)[s](x, y); }

private:
    int lowS_ = 0;
    std::vector<IndexedMatrix<T>> layers_;
};

using DoubleMatrix = IndexedMatrix<double>;
using DoubleCube = IndexedCube<double>;
using CharCube = IndexedCube<char>;

// The allocators of the model under their classic names and failure lines.
void dmatrix(DoubleMatrix& m, int lowX, int highX, int lowY, int highY);
void dcubix(DoubleCube& c, int lowS, int highS, int lowX, int highX, int lowY, int highY);
void ccubix(CharCube& c, int lowS, int highS, int lowX, int highX, int lowY, int highY);

}  // namespace vorn
