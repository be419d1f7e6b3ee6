#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "support/ModelForm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

// What the kernel tables of all classes are held to.

namespace kovis::test
{
using Domain = eInstructionSet::domain;
using Key = std::vector<int>;

/// The buffer types in the order of entry.
inline constexpr int g_typesInLoadOrder[] = {1, 2, 3, 4, 5, 6, 7, 8, 11, 9, 10};

struct TableForm
{
    Domain m_first;
    Domain m_second;
    bool m_bFull; ///< else it has the row of float alone
};

inline processor::InstructionSetsIdentifier makeSets(Domain first, Domain second)
{
    processor::InstructionSetsIdentifier sets;
    sets.init(first, second);
    return sets;
}

/// The form of the kernel that stands in a row of those sets.
inline const ModelForm& formOf(const processor::InstructionSetsIdentifier& sets)
{
    return sets.contains(Domain::eIS_AVX512) ? g_avx512Form
           : sets.contains(Domain::eIS_FMA3) ? g_fma3Form
           : sets.contains(Domain::eIS_AVX2) ? g_avx2Form
           : sets.contains(Domain::eIS_AVX)  ? g_avxForm
           : sets.contains(Domain::eIS_SSE2) ? g_sse2Form
                                             : g_genericForm;
}

inline processor::DataTypeIdentifierColl makeKey(const Key& types)
{
    const auto identifier = [&types](std::size_t place)
    {
        imaproc::ImageBufferTypeIdentifier made;
        made.init(static_cast<image::eImageBufferType>(types.at(place)));
        return made;
    };
    processor::DataTypeIdentifierColl key;
    if (types.size() == 1)
    {
        key.init(identifier(0));
    }
    else if (types.size() == 2)
    {
        key.init(identifier(0), identifier(1));
    }
    else
    {
        key.init(identifier(0), identifier(1), identifier(2));
    }
    return key;
}

/// All keys of a full table, the last position running fastest.
inline std::vector<Key> makeKeys(std::size_t nbPositions)
{
    std::vector<Key> keys{Key()};
    for (std::size_t place = 0; place < nbPositions; ++place)
    {
        std::vector<Key> longer;
        for (const Key& key : keys)
        {
            for (const int type : g_typesInLoadOrder)
            {
                longer.push_back(key);
                longer.back().push_back(type);
            }
        }
        keys = longer;
    }
    return keys;
}

/// The table holds the rows of the forms that this computer can run, form after form, and nothing else.
inline void expectRowsInLoadOrder(const processor::AlgorithmFunctionSelector& selector, const std::vector<TableForm>& forms,
                                  std::size_t nbPositions)
{
    const auto& rows = selector.getFunctions();
    const std::vector<Key> keys = makeKeys(nbPositions);
    std::size_t row = 0;
    for (const TableForm& form : forms)
    {
        if (!core::isAvailable(form.m_first) || !core::isAvailable(form.m_second))
        {
            continue;
        }
        for (const Key& key : keys)
        {
            if (form.m_bFull || key == Key(nbPositions, 7))
            {
                ASSERT_LT(row, rows.size());
                EXPECT_TRUE(rows[row].getDataTypes() == makeKey(key)) << row;
                EXPECT_EQ(rows[row].getInstructionSets(), makeSets(form.m_first, form.m_second)) << row;
                ++row;
            }
        }
    }
    EXPECT_EQ(row, rows.size());
}

/// Whether this processor has what the form needs. The compiler's own look at it: a set that the platform hides by mistake is no
/// reason to skip.
inline bool hasForm(const std::string& form)
{
    __builtin_cpu_init();
    return (form != "avx" || __builtin_cpu_supports("avx") != 0) && (form != "avx2" || __builtin_cpu_supports("avx2") != 0) &&
           (form != "fma3" || (__builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0)) &&
           (form != "avx512" || (__builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512bw") != 0 &&
                                 __builtin_cpu_supports("avx512dq") != 0 && __builtin_cpu_supports("avx512vl") != 0));
}

/// The number of rows that KOVIS_EXPECTED_ROWS tells. The set that KOVIS_MAX_INSTRUCTION_SET leaves is given beside it, so that a
/// computer without it is told apart from a table that lacks rows.
inline void expectNumberOfRows(const processor::AlgorithmFunctionSelector& selector)
{
    const char* const nbRows = std::getenv("KOVIS_EXPECTED_ROWS");
    if (nbRows == nullptr)
    {
        GTEST_SKIP() << "KOVIS_EXPECTED_ROWS is not set";
    }
    const char* const name = std::getenv("KOVIS_EXPECTED_FORM");
    ASSERT_NE(name, nullptr) << "KOVIS_EXPECTED_ROWS needs KOVIS_EXPECTED_FORM";
    const std::string form = name;
    if (!hasForm(form))
    {
        GTEST_SKIP() << "this computer has no " << form;
    }
    EXPECT_EQ(selector.getFunctions().size(), std::stoul(nbRows));
}

/// How many kernels the generic rows have: buffer types of one storage share theirs.
inline std::size_t countGenericKernels(const processor::AlgorithmFunctionSelector& selector, std::size_t nbPositions)
{
    std::vector<processor::AlgorithmFunctionIdentifier::Function> functions;
    for (const Key& key : makeKeys(nbPositions))
    {
        processor::AlgorithmFunctionIdentifier row;
        EXPECT_TRUE(selector.select(makeKey(key), makeSets(Domain::eIS_Generic, Domain::eIS_Generic), row));
        if (std::find(functions.begin(), functions.end(), row.getFunction()) == functions.end())
        {
            functions.push_back(row.getFunction());
        }
    }
    return functions.size();
}

/// Forces instruction sets on the class T as long as it lives.
template <class T>
class Forced
{
public:
    Forced(Domain first, Domain second) { T::forceInstructionSets(makeSets(first, second)); }
    ~Forced() { T::releaseForcedInstructionSets(); }
    Forced(const Forced&) = delete;
    Forced& operator=(const Forced&) = delete;
};
} // namespace kovis::test
