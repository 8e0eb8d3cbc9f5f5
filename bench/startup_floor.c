/* The least a program can do for `orvanta_cli status`: connect to the desktop
 * client on the first port that answers, send the same hello and the same
 * login-state subscription as hand-built frames (tag 29, 32-bit
 * little-endian length, text), pause the same 100 ms, take the first login
 * notification and print the same two lines. No threads, no allocation,
 * no parsing beyond a substring match, a blocking socket with the options
 * the client uses (none beyond the defaults). scripts/bench runs it beside
 * orvanta_cli as the floor of start-up.
 *
 * With --contains N it then asks `library_contains` for N tracks, one
 * request at a time, as `library batch` does for a manifest of N such ops:
 * the loopback floor of batch throughput.
 *
 *   startup_floor [--no-pause] [--contains N]
 */
#include <arpa/inet.h>
#include <netinet/in.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/random.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

enum { kFrameTag = 29, kFirstPort = 7768, kLastPort = 7776 };

/* A random UUID text, as the client makes for every request id. */
static void make_id(char out[37]) {
  unsigned char bytes[16];
  if (getrandom(bytes, sizeof bytes, 0) != (ssize_t)sizeof bytes) memset(bytes, 0x5a, sizeof bytes);
  bytes[6] = (unsigned char)((bytes[6] & 0x0f) | 0x40);
  bytes[8] = (unsigned char)((bytes[8] & 0x3f) | 0x80);
  static const char hex[] = "0123456789abcdef";
  int at = 0;
  for (int i = 0; i < 16; ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) out[at++] = '-';
    out[at++] = hex[bytes[i] >> 4];
    out[at++] = hex[bytes[i] & 15];
  }
  out[at] = '\0';
}

static int write_all(int fd, const char* data, size_t size) {
  while (size > 0) {
    ssize_t n = send(fd, data, size, MSG_NOSIGNAL);
    if (n <= 0) return -1;
    data += n;
    size -= (size_t)n;
  }
  return 0;
}

static int read_all(int fd, char* data, size_t size) {
  while (size > 0) {
    ssize_t n = recv(fd, data, size, 0);
    if (n <= 0) return -1;
    data += n;
    size -= (size_t)n;
  }
  return 0;
}

static int send_frame(int fd, const char* text, size_t size) {
  char frame[512];
  if (size + 5 > sizeof frame) return -1;
  frame[0] = kFrameTag;
  frame[1] = (char)(size & 0xff);
  frame[2] = (char)((size >> 8) & 0xff);
  frame[3] = (char)((size >> 16) & 0xff);
  frame[4] = (char)((size >> 24) & 0xff);
  memcpy(frame + 5, text, size);
  return write_all(fd, frame, size + 5);
}

/* Reads one frame's text into `text` (NUL-terminated); -1 on failure. */
static int read_frame(int fd, char* text, size_t capacity) {
  unsigned char header[5];
  if (read_all(fd, (char*)header, sizeof header) != 0 || header[0] != kFrameTag) return -1;
  uint32_t size = (uint32_t)header[1] | (uint32_t)header[2] << 8 | (uint32_t)header[3] << 16 |
                  (uint32_t)header[4] << 24;
  if (size >= capacity || read_all(fd, text, size) != 0) return -1;
  text[size] = '\0';
  return 0;
}

static int connect_first_port(void) {
  for (int port = kFirstPort; port <= kLastPort; ++port) {
    int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP);
    if (fd < 0) return -1;
    struct sockaddr_in address;
    memset(&address, 0, sizeof address);
    address.sin_family = AF_INET;
    address.sin_port = htons((uint16_t)port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(fd, (struct sockaddr*)&address, sizeof address) == 0) return fd;
    close(fd);
  }
  return -1;
}

/* One request and its response, whose id must match. */
static int call(int fd, const char* method, const char* params, char* reply, size_t capacity) {
  char id[37];
  char text[512];
  make_id(id);
  int size = snprintf(text, sizeof text, "{\"jsonrpc\":\"2.0\",\"method\":\"%s\",\"params\":%s,\"id\":\"%s\"}", method,
                      params, id);
  if (size < 0 || (size_t)size >= sizeof text || send_frame(fd, text, (size_t)size) != 0) return -1;
  for (;;) {
    if (read_frame(fd, reply, capacity) != 0) return -1;
    if (strstr(reply, id) != NULL) return strstr(reply, "\"result\"") != NULL ? 0 : -1;
  }
}

int main(int argc, char** argv) {
  int pause = 1;
  long contains = 0;
  for (int i = 1; i < argc; ++i) {
    if (strcmp(argv[i], "--no-pause") == 0) {
      pause = 0;
    } else if (strcmp(argv[i], "--contains") == 0 && i + 1 < argc) {
      contains = strtol(argv[++i], NULL, 10);
    } else {
      fputs("usage: startup_floor [--no-pause] [--contains N]\n", stderr);
      return 2;
    }
  }
  int fd = connect_first_port();
  if (fd < 0) {
    fputs("Failed to connect to Orvanta desktop client\n", stderr);
    return 1;
  }
  char reply[4096];
  /* The client id has the length of the client's own; the peer only asks
   * that there is one. */
  if (call(fd, "authorize_connection",
           "{\"client_id\":\"00000000000000000000000000000000\",\"name\":\"Orvanta CLI\","
           "\"version\":\"1.2.93.667\",\"feature_identifier\":\"partner_api_client\"}",
           reply, sizeof reply) != 0 ||
      call(fd, "login_state_subscription", "{}", reply, sizeof reply) != 0) {
    fputs("Failed to connect to Orvanta desktop client\n", stderr);
    return 1;
  }
  /* The first notification arrives during the pause, as in the client. */
  if (pause) {
    struct timespec pause_time = {0, 100000000};
    nanosleep(&pause_time, NULL);
  }
  do {
    if (read_frame(fd, reply, sizeof reply) != 0) return 1;
  } while (strstr(reply, "\"method\":\"login_state_subscription\"") == NULL);
  int logged_in = strstr(reply, "\"logged_in\":true") != NULL;
  for (long i = 0; i < contains; ++i) {
    char params[96];
    snprintf(params, sizeof params, "{\"uris\":[\"orvanta:track:%022ld\"]}", i);
    if (call(fd, "library_contains", params, reply, sizeof reply) != 0) return 1;
    printf("{\"op\":\"library_contains\",\"ok\":true}\n");
  }
  close(fd);
  printf("Orvanta desktop client is running\nLogged in: %s\n", logged_in ? "Yes" : "No");
  return 0;
}
