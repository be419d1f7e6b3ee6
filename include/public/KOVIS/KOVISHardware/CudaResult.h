#pragma once

namespace kovis::gpu
{
/// What a call of the CUDA runtime came to: true and an empty text, or false and the text of cudaGetErrorString. The text lives
/// as long as the process.
struct CudaResult
{
    bool m_bSuccess = true;
    const char* m_text = "";

    explicit operator bool() const { return m_bSuccess; }
};
} // namespace kovis::gpu
