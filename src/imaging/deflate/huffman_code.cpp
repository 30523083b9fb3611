#include "imaging/deflate/huffman_code.h"

#include <algorithm>
#include <array>

namespace quarlin {

namespace {

constexpr std::size_t longestPossible = 15;

/// How many codes there are of each length.
using LengthCounts = std::array<std::uint32_t, longestPossible + 1>;

/// Builds the Huffman tree of leaves with these `weights`, which ascend, and counts the leaves at each depth;
/// those deeper than `longest` count as `longest`. Two queues give the lightest node: the leaves not yet
/// taken, and the inner nodes in the order in which they were made, which is the order of their weights.
LengthCounts countDepths(const std::vector<std::uint32_t>& weights, std::size_t longest) {
    const std::size_t leaves = weights.size();
    std::vector<std::uint64_t> nodeWeights;
    std::vector<std::size_t> parents(2 * leaves - 1);
    std::size_t nextLeaf = 0;
    std::size_t nextNode = 0;
    const auto takeLightest = [&](std::size_t parent) {
        const bool leafIsLighter = nextNode == nodeWeights.size() ||
                                   (nextLeaf < leaves && weights[nextLeaf] <= nodeWeights[nextNode]);
        if (leafIsLighter) {
            parents[nextLeaf] = parent;
            return std::uint64_t{weights[nextLeaf++]};
        }
        parents[leaves + nextNode] = parent;
        return nodeWeights[nextNode++];
    };
    for (std::size_t node = leaves; node < 2 * leaves - 1; ++node) {
        const std::uint64_t first = takeLightest(node);
        nodeWeights.push_back(first + takeLightest(node));
    }

    LengthCounts counts{};
    std::vector<std::size_t> depths(2 * leaves - 1);
    for (std::size_t node = 2 * leaves - 2; node-- > 0;) {
        depths[node] = depths[parents[node]] + 1;
        if (node < leaves) {
            ++counts[std::min(depths[node], longest)];
        }
    }
    return counts;
}

/// Codes that were shortened to `longest` bits exceed the code space. Each step frees the space of one code
/// of that length: its symbol joins the one with the longest shorter code, and both get codes one bit longer
/// than that one.
void makeFit(LengthCounts& counts, std::size_t longest) {
    std::uint32_t used = 0;
    for (std::size_t length = 1; length <= longest; ++length) {
        used += counts[length] << (longest - length);
    }
    for (; used > 1U << longest; --used) {
        --counts[longest];
        std::size_t length = longest - 1;
        while (counts[length] == 0) {
            --length;
        }
        --counts[length];
        counts[length + 1] += 2;
    }
}

std::uint16_t reversed(std::uint32_t code, int length) {
    std::uint32_t result = 0;
    for (int bit = 0; bit < length; ++bit) {
        result = result << 1U | (code >> static_cast<unsigned>(bit) & 1U);
    }
    return static_cast<std::uint16_t>(result);
}

}  // namespace

HuffmanCode makeHuffmanCode(std::span<const std::uint32_t> counts, int longest) {
    std::vector<std::size_t> symbols;
    for (std::size_t symbol = 0; symbol < counts.size(); ++symbol) {
        if (counts[symbol] > 0) {
            symbols.push_back(symbol);
        }
    }
    for (std::size_t spare = 0; symbols.size() < 2; ++spare) {
        if (counts[spare] == 0) {
            symbols.push_back(spare);
        }
    }
    std::stable_sort(symbols.begin(), symbols.end(),
                     [&](std::size_t left, std::size_t right) { return counts[left] < counts[right]; });
    std::vector<std::uint32_t> weights;
    weights.reserve(symbols.size());
    for (const std::size_t symbol : symbols) {
        weights.push_back(std::max(1U, counts[symbol]));
    }
    LengthCounts lengthCounts = countDepths(weights, static_cast<std::size_t>(longest));
    makeFit(lengthCounts, static_cast<std::size_t>(longest));

    HuffmanCode code{std::vector<std::uint8_t>(counts.size()), std::vector<std::uint16_t>(counts.size())};
    // The rarest symbols come first and take the longest codes.
    auto symbol = symbols.begin();
    for (auto length = static_cast<std::size_t>(longest); length > 0; --length) {
        for (std::uint32_t index = 0; index < lengthCounts[length]; ++index) {
            code.lengths[*symbol++] = static_cast<std::uint8_t>(length);
        }
    }
    // Within a length, codes ascend with their symbols.
    std::uint32_t next = 0;
    for (int length = 1; length <= longest; ++length) {
        next <<= 1U;
        for (std::size_t index = 0; index < counts.size(); ++index) {
            if (code.lengths[index] == length) {
                code.bits[index] = reversed(next++, length);
            }
        }
    }
    return code;
}

}  // namespace quarlin
