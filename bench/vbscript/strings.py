# String building: appending pieces and numbers, then reading characters back.
def main():
    s = ""
    for i in range(1, 400001):
        s += "ab" + str(i % 10)
    n = 0
    for i in range(1, len(s) + 1, 997):
        if s[i - 1] == "a":
            n = n + 1
    print(len(s), n)

main()
