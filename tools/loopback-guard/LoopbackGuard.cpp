// Preloaded into a program, turns every TCP socket that it binds to all interfaces into one that only this
// machine reaches. Qt's VNC platform always binds to all of them and asks for no password, so ./run needs it.
#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstring>

namespace
{
using TBind = int (*)(int, sockaddr const*, socklen_t);

int GetOption(int socket, int level, int option)
{
    int value = 0;
    socklen_t size = sizeof value;
    return getsockopt(socket, level, option, &value, &size) == 0 ? value : 0;
}

int BindNarrowedV4(TBind systemBind, int socket, sockaddr const* address)
{
    sockaddr_in narrowed;
    std::memcpy(&narrowed, address, sizeof narrowed);
    if (narrowed.sin_addr.s_addr == htonl(INADDR_ANY))
        narrowed.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return systemBind(socket, reinterpret_cast<sockaddr const*>(&narrowed), sizeof narrowed);
}

// A socket of both families keeps the address that people type: 127.0.0.1, mapped into IPv6.
int BindNarrowedV6(TBind systemBind, int socket, sockaddr const* address)
{
    sockaddr_in6 narrowed;
    std::memcpy(&narrowed, address, sizeof narrowed);
    if (IN6_IS_ADDR_UNSPECIFIED(&narrowed.sin6_addr))
    {
        bool const v6Only = GetOption(socket, IPPROTO_IPV6, IPV6_V6ONLY) != 0;
        inet_pton(AF_INET6, v6Only ? "::1" : "::ffff:127.0.0.1", &narrowed.sin6_addr);
    }
    return systemBind(socket, reinterpret_cast<sockaddr const*>(&narrowed), sizeof narrowed);
}
} // namespace

extern "C" int bind(int socket, sockaddr const* address, socklen_t size) noexcept
{
    static TBind const systemBind = reinterpret_cast<TBind>(dlsym(RTLD_NEXT, "bind"));
    if (address != nullptr && GetOption(socket, SOL_SOCKET, SO_TYPE) == SOCK_STREAM)
    {
        if (address->sa_family == AF_INET && size >= sizeof(sockaddr_in))
            return BindNarrowedV4(systemBind, socket, address);
        if (address->sa_family == AF_INET6 && size >= sizeof(sockaddr_in6))
            return BindNarrowedV6(systemBind, socket, address);
    }
    return systemBind(socket, address, size);
}
