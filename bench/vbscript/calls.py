# Procedure calls: a small function called in a loop, and recursion.
def add(a, b):
    return a + b
def fib(n):
    if n < 2:
        return n
    return fib(n - 1) + fib(n - 2)

def main():
    total = 0
    for i in range(1, 1000001):
        total = add(total, i)
    print(total, fib(25))

main()
