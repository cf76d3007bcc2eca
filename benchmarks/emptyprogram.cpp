// Linked to what ttconfig is linked to, and does nothing: what is left is the system's own part of a start.

int main() {
    return 0;
}
