#include "drawing/lattice_union.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace {

// Directions along the lattice: +i, +j, -i, -j; a left turn adds 1.
constexpr int kStepI[4] = {1, 0, -1, 0};
constexpr int kStepJ[4] = {0, 1, 0, -1};

struct Edge {
    int i = 0;  // start node
    int j = 0;
    int dir = 0;
    int nextFromNode = -1;  // the other edge leaving the same node, if any
    bool used = false;
};

// A traced ring in lattice nodes, corners only.
struct LatticeRing {
    std::vector<std::pair<int, int>> nodes;
    long long twiceArea = 0;  // > 0 counter-clockwise
};

class Tracer {
public:
    Tracer(int nx, int ny, const std::vector<std::int32_t>& labels, std::int32_t label)
        : nx_(nx), ny_(ny), labels_(labels), label_(label)
    {
    }

    std::vector<LatticeRing> trace()
    {
        collectEdges();
        std::vector<LatticeRing> rings;
        for (size_t e = 0; e < edges_.size(); ++e)
            if (!edges_[e].used) rings.push_back(ringFrom(static_cast<int>(e)));
        return rings;
    }

private:
    bool member(int i, int j) const
    {
        return i >= 0 && i < nx_ && j >= 0 && j < ny_ && labels_[static_cast<size_t>(i) * ny_ + j] == label_;
    }
    long long nodeKey(int i, int j) const { return static_cast<long long>(i) * (ny_ + 1) + j; }

    void addEdge(int i, int j, int dir)
    {
        Edge edge{i, j, dir, -1, false};
        auto [it, isNew] = firstEdge_.try_emplace(nodeKey(i, j), static_cast<int>(edges_.size()));
        if (!isNew) edge.nextFromNode = std::exchange(it->second, static_cast<int>(edges_.size()));
        edges_.push_back(edge);
    }

    // Each member cell's sides that face a non-member, counter-clockwise
    // around the cell, so the member cells lie left of every edge.
    void collectEdges()
    {
        for (int i = 0; i < nx_; ++i) {
            for (int j = 0; j < ny_; ++j) {
                if (!member(i, j)) continue;
                if (!member(i, j - 1)) addEdge(i, j, 0);
                if (!member(i + 1, j)) addEdge(i + 1, j, 1);
                if (!member(i, j + 1)) addEdge(i + 1, j + 1, 2);
                if (!member(i - 1, j)) addEdge(i, j + 1, 3);
            }
        }
    }

    // The edge leaving (i, j) after one arriving along `incomingDir`; where
    // two leave (member cells meeting at a corner) the left turn, which
    // pairs each arriving edge with its own cell's next side and keeps the
    // two cells' rings apart.
    int nextEdge(int i, int j, int incomingDir) const
    {
        auto found = firstEdge_.find(nodeKey(i, j));
        if (found == firstEdge_.end()) return -1;
        int chosen = found->second;
        for (int e = chosen; e >= 0; e = edges_[static_cast<size_t>(e)].nextFromNode)
            if (edges_[static_cast<size_t>(e)].dir == (incomingDir + 1) % 4) chosen = e;
        return chosen;
    }

    LatticeRing ringFrom(int start)
    {
        LatticeRing ring;
        int e = start;
        int previousDir = -1;
        do {
            Edge& edge = edges_[static_cast<size_t>(e)];
            edge.used = true;
            if (edge.dir != previousDir) ring.nodes.push_back({edge.i, edge.j});
            previousDir = edge.dir;
            e = nextEdge(edge.i + kStepI[edge.dir], edge.j + kStepJ[edge.dir], edge.dir);
        } while (e >= 0 && e != start);
        // The first node is a corner unless the ring closes running straight.
        if (ring.nodes.size() > 1 && edges_[static_cast<size_t>(start)].dir == previousDir)
            ring.nodes.erase(ring.nodes.begin());
        for (size_t k = 0; k < ring.nodes.size(); ++k) {
            const auto& a = ring.nodes[k];
            const auto& b = ring.nodes[(k + 1) % ring.nodes.size()];
            ring.twiceArea += static_cast<long long>(a.first) * b.second - static_cast<long long>(b.first) * a.second;
        }
        return ring;
    }

    int nx_;
    int ny_;
    const std::vector<std::int32_t>& labels_;
    std::int32_t label_;
    std::vector<Edge> edges_;
    std::unordered_map<long long, int> firstEdge_;
};

// Whether the lattice node (i, j), not on the ring, lies inside it: a ray
// along +i at j + 0.5 crosses the ring's edges along j.
bool nodeInside(const LatticeRing& ring, int i, int j)
{
    bool inside = false;
    const double y = j + 0.5;
    for (size_t k = 0; k < ring.nodes.size(); ++k) {
        const auto& a = ring.nodes[k];
        const auto& b = ring.nodes[(k + 1) % ring.nodes.size()];
        if (a.first != b.first || a.first <= i) continue;
        if ((a.second < y) != (b.second < y)) inside = !inside;
    }
    return inside;
}

}  // namespace

vorn::Region uniteLatticeCells(int nx, int ny, const std::vector<std::int32_t>& labels, std::int32_t label,
                               const std::function<vorn::Point2d(int i, int j)>& node)
{
    std::vector<LatticeRing> rings = Tracer(nx, ny, labels, label).trace();
    std::vector<size_t> outers;
    for (size_t k = 0; k < rings.size(); ++k)
        if (rings[k].twiceArea > 0) outers.push_back(k);
    // Outers by rising area, so a hole goes to the smallest outer around it.
    std::sort(outers.begin(), outers.end(), [&rings](size_t a, size_t b) { return rings[a].twiceArea < rings[b].twiceArea; });

    auto place = [&node](const LatticeRing& ring) {
        vorn::Ring points;
        for (const auto& [i, j] : ring.nodes) points.push_back(node(i, j));
        return points;
    };
    vorn::Region region;
    std::vector<int> faceOfOuter(rings.size(), -1);
    for (size_t k : outers) {
        faceOfOuter[k] = static_cast<int>(region.faces.size());
        region.faces.push_back({place(rings[k]), {}});
    }
    for (const LatticeRing& hole : rings) {
        if (hole.twiceArea >= 0) continue;
        const auto& [i, j] = hole.nodes.front();
        for (size_t k : outers) {
            if (!nodeInside(rings[k], i, j)) continue;
            region.faces[static_cast<size_t>(faceOfOuter[k])].holes.push_back(place(hole));
            break;
        }
    }
    return region;
}
