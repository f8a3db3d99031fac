# Arithmetic: integer and floating-point work in a tight loop.
def main():
    total = 0
    x = 0.5
    for i in range(1, 3000001):
        total = total + (i * 3) % 7
        x = x * 1.0000001 + 0.25
    print(total, int(x))

main()
