# Method calls on a class instance.
class Acc:
    def __init__(self):
        self.total = 0
    def add(self, n):
        self.total = self.total + n
def main():
    a = Acc()
    for i in range(1, 1000001):
        a.add(i)
    print(a.total)
main()
