# Array work: a sieve of Eratosthenes and a summing pass over a list.
def main():
    N = 2000000
    flags = [False] * (N + 1)
    count = 0
    for i in range(2, N + 1):
        if not flags[i]:
            count = count + 1
            for j in range(i + i, N + 1, i):
                flags[j] = True
    total = 0
    for i in range(0, N + 1, 3):
        if flags[i]:
            total = total + 1
    print(count, total)

main()
