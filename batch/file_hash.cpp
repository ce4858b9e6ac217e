#include "batch/file_hash.h"

#include <memory>

#include <openssl/evp.h>

namespace vistrel
{

QString fileHash(QIODevice& file)
{
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    bool done = EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr) == 1 && file.seek(0);
    QByteArray part(65536, Qt::Uninitialized);
    qint64 count = 0;
    while (done && (count = file.read(part.data(), part.size())) > 0)
        done = EVP_DigestUpdate(context.get(), part.data(), size_t(count)) == 1;
    QByteArray hash(EVP_MD_size(EVP_sha256()), Qt::Uninitialized);
    done = done && count == 0 &&
           EVP_DigestFinal_ex(context.get(), reinterpret_cast<uchar*>(hash.data()), nullptr) == 1;
    return done ? QString::fromLatin1(hash.toHex()) : QString();
}

} // namespace vistrel
