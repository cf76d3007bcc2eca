// Does nothing, but links the same libraries as ttconfig: measures the system's share of the start-up time.

int main() {
    return 0;
}
