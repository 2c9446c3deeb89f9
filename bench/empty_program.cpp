// What the start and the end of any C++ program cost.
int main() {}
